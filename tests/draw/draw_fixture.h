#pragma once

#include <cstdio>

#include "draw/geometry.h"
#include "support/short_program.h"
#include "support/table.h"

namespace kvt::test {

// The drawing window of a workbench, without a grid, at scale 1, with the zero point at 1000, 1000.
class DrawTest : public WorkbenchFixture {
protected:
    DrawTest() {
        Controls().mnuGrid.Checked = false;
        Platform.System.Watch(Controls().frmDraw);
    }
    DrawWindow& Draw() { return Workbench->Draw; }
    DrawControls& Controls() { return Workbench->Draw.Controls; }
    DrawState& State() { return Workbench->Draw.State; }
    PictureBox& Field() { return Controls().pbxDrawField; }

    // Puts a program into the workbench while the window is hidden, so that it draws nothing.
    void Put(const std::string& machine, const std::string& program) {
        Controls().frmDraw.Visible = false;
        Check(machine, Program(program));
        Controls().frmDraw.Visible = true;
    }
    void DrawLines(const std::string& machine, const std::string& program) {
        Put(machine, program);
        State().ZeroX = 1000;
        State().ZeroY = 1000;
        Draw().Redraw();
    }
    void Comment(int line, const char* text) {
        Workbench->Store.lvCncProgram.Row(line + 1)[column::Comment] = text;
    }

    // "L x1,y1 x2,y2 colour", B for a box, with the width where it is not 1; "C x,y radius colour".
    static std::string TextOf(const DrawOperation& one) {
        char text[128];
        const bool circle = one.What == DrawOperation::Kind::Circle;
        if (circle) {
            std::snprintf(text, sizeof text, "C %g,%g %g %06X", one.X1, one.Y1, one.X2, one.Ink);
        } else {
            std::snprintf(text, sizeof text, "%s %g,%g %g,%g %06X",
                          one.What == DrawOperation::Kind::Box ? "B" : "L", one.X1, one.Y1, one.X2, one.Y2,
                          one.Ink);
        }
        return text + (one.Width == 1 ? std::string() : " w" + std::to_string(one.Width));
    }
    // What was drawn behind the clearing and the five strokes of the zero point, joined by "|".
    std::string Path() {
        std::string path;
        const std::vector<DrawOperation>& all = Field().Operations();
        for (std::size_t i = 6; i < all.size(); ++i) path += (i > 6 ? "|" : "") + TextOf(all[i]);
        return path;
    }
};

}  // namespace kvt::test
