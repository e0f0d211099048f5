#pragma once

#include <optional>

#include "draw/draw_window.h"
#include "interpreter/view_columns.h"

namespace kvt {

// Lays the editor and the drawing side by side on the screen: the list keeps the width of its columns, the drawing has
// the rest. What the windows were before is kept for going back, and it is what the settings file holds of them.
class Beside {
public:
    struct Parts {
        Form& Editor;
        DrawControls& Drawing;
        const ViewColumns& View;
        ScreenService& Screen;
    };
    explicit Beside(const Parts& parts);

    // Checked while it is in force.
    Menu mnuBeside;

    // A window's own place, and whether it fills the screen there.
    struct OwnPlace {
        WindowPlace Place;
        bool FillsScreen;
    };
    OwnPlace Own(const Form& window) const;

    // Both windows take their places, if the entry is checked. A drawing that is being opened is not seen yet.
    void Arrange();
    // The same where the columns have changed, unless the drawing is closed.
    void FollowColumns();
    // The drawing has been given a place of its own.
    void DrawingPlaced();
    // The editor has been given a place of its own by the settings, which will tell whether this is in force.
    void EditorPlaced();

private:
    void mnuBeside_Click();
    void Restore(Form& window, std::optional<OwnPlace>& own);

    Parts parts_;
    std::optional<OwnPlace> editor_, drawing_;
};

}  // namespace kvt
