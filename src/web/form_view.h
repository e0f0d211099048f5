#pragma once

#include <memory>
#include <vector>

#include "platform/services.h"
#include "web/web_view.h"

namespace kvt {

// A form as a window inside the page: a maximised one fills it. Makes the views of all its controls; the form must
// outlive it. What its title, edges and menus take of a part of the screen the page has told.
class WebFormView : public WebView {
public:
    WebFormView(WebContext& web, Form& form, ScreenService& screen, const WindowPlace& edges);

    void PropertyChanged(Control& control, PropertyId id) override;
    // A window whose field is frozen can be moved and closed all the same.
    void Take(const PageEvent& event) override;
    Form& Window() const { return form_; }
    // It fills the page from now on, unless it is given a part of it.
    void FillPage();
    // A maximised window takes the size of a page that has another one.
    void FollowScreen();
    // A file was dropped on it.
    void Drop(const std::string& path);

protected:
    void Describe(Message& message) const override;
    bool Write(Message& message, PropertyId id) const override;

private:
    void MakeViews();
    ControlView* MakeView(Control& control);
    void Put(const WindowPlace& place);
    void TellResize();
    void TakeField(int width, int height, const WindowPlace& corner);
    void TakeState(const PageEvent& event);
    void Show();
    void FillArea();
    void FillPageSoon();

    Form& form_;
    ScreenService& screen_;
    const WindowPlace& edges_;
    std::vector<std::unique_ptr<ControlView>> views_;
    bool putting_ = false;
    bool fillsPage_ = false;
    bool hasPart_ = false;
};

}  // namespace kvt
