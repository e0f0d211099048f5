#pragma once

#include "platform/list_view.h"
#include "web/web_view.h"

namespace kvt {

// The list of rows of cells. The page has the rows around those in sight.
class WebRowsView : public WebView {
public:
    WebRowsView(WebContext& web, ListView& control) : WebView(web, control), list_(control) {}

protected:
    void Describe(Message& message) const override;
    void TellMore(const Properties& changed) override;
    void Act(const PageEvent& event) override;

private:
    // The rows that the page should have, from 1; First beyond Last for none.
    struct Range {
        int First = 1, Last = 0;
        bool operator==(const Range&) const = default;
    };
    Range Around() const;
    void WriteHeaders(Message& message) const;
    void WriteRows(Message& message, const Range& rows) const;
    void TakeSight(const PageEvent& event);
    void TakeRow(const PageEvent& event);
    void TellTip(const PageEvent& event);
    void TellFinding();

    ListView& list_;
    Range told_;
    std::string toldFinding_;
};

}  // namespace kvt
