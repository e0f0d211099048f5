#pragma once

#include "platform/picture_box.h"
#include "web/web_view.h"

namespace kvt {

// A field that is drawn on. The page replays the operations on a canvas; it is told of new ones as they come.
class WebPictureBoxView : public WebView {
public:
    WebPictureBoxView(WebContext& web, PictureBox& control);

protected:
    bool Write(Message& message, PropertyId id) const override;
    void TellMore(const Properties& changed) override;
    void Act(const PageEvent& event) override;

private:
    void SendOperations();
    void SendLit() const;
    void TakeMouse(const PageEvent& event);
    bool KeepAsPicture();

    PictureBox& box_;
    long long first_ = -1;
    std::size_t told_ = 0;
};

}  // namespace kvt
