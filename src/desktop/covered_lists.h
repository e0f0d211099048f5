#pragma once

#include <QObject>

#include "desktop/view.h"

namespace kvt {

// Where a frame lies over the end of a list, the list's widget ends in front of it: every entry can be scrolled into
// sight.
class CoveredLists : public QObject {
public:
    // Watches the lists and frames of a form, whose views are made.
    CoveredLists(const DesktopContext& desktop, const Form& form);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Shorten();

    const DesktopContext& desktop_;
    std::vector<const ListBox*> lists_;
    std::vector<QWidget*> frames_;
    bool shortening_ = false;
};

}  // namespace kvt
