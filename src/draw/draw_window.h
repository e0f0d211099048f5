#pragma once

#include <vector>

#include "draw/draw_bar.h"
#include "draw/draw_program.h"
#include "draw/legend.h"
#include "draw/navigation.h"
#include "draw/output.h"
#include "platform/key_press.h"

namespace kvt {

// The drawing window: what it shows, its menus, keys and buttons, and the one way to draw the program.
class DrawWindow {
public:
    struct Parts {
        ProgramStore& Store;
        MachineControls& Machine;
        InterpreterControls& Results;
        FileControls& File;
        Texts& Language;
        Services& Platform;
    };
    explicit DrawWindow(const Parts& parts);
    DrawWindow(const DrawWindow&) = delete;
    DrawWindow& operator=(const DrawWindow&) = delete;

    DrawControls Controls;
    DrawState State;

private:
    DrawParts parts_;

public:
    Viewport View;
    Simulation Sim;
    ProgramWindow Listing;
    EditorLine Editor;
    StrokeGuide Strokes;
    Legend Colors;
    Measuring Measure;
    DrawBar Bar;
    DrawingOutput Output;

    // Draws the program anew, in the passes that machine and menus ask for. During a walk none is begun; one
    // follows when that has ended. Does nothing while the window is hidden.
    void Redraw();
    // Whether the last Redraw was given up because nothing could end it any more.
    bool GivenUp() const { return givenUp_; }

    // Shows the window, fitted to the program; the one that is up is drawn anew.
    void Show();
    // On a larger screen the window begins maximised.
    static bool BeginsMaximised(ScreenService& screen);
    // The same where the user asks for the drawing. It is fitted, but for a view of his own with a stroke in sight.
    void DrawForUser();
    // The same behind the editor, with which the keys stay.
    void ShowBehindEditor();
    // Draws anew as Show does, if the window is up, when the handler that asks for it has ended: a drawing may wait,
    // and the events that it serves then must find all done.
    void ShowLater();
    // Lets a walk under way go on to its end without a wait, then does something; at once without one.
    void AfterWalk(std::function<void()> then);
    // Closes the window; a walk under way ends.
    void Unload();

    void Form_Activate();
    // The listing goes when the keys go to another window of the program than these two.
    void Form_LostFocus();
    void Form_Resize();
    void Form_QueryUnload();
    void Form_KeyDown(int key);
    void Listing_KeyDown(KeyStroke pressed);
    void PositionControls();
    void cmdAutoFit_Click();
    void cmdRedraw_Click();
    void mnuEditor_Click();

    // Called for settings where they are to be taken or kept, and for the editor where it is to come forward.
    std::function<void()> LoadSettings, SaveSettings, ShowEditor;
    // Told what has happened, for the quiet line.
    std::function<void(std::string_view what)> Tell;
    // Called when the window that was closed had the keys.
    std::function<void()> RestoreFocus;

private:
    void Form_Load();
    void PrepareToShow();
    void UpdateForProgram();
    void FitAndDraw();
    void WireMenus();
    void WireField();
    void RunPasses();
    void NameAxes();
    void FillMeasureFields();
    void PlaceFramesInRow();
    void ShowMenusOfMachine();
    void DrawWhatIsAsked();
    void EndMode();
    void pbxDrawField_KeyDown(int pressed);

    Navigation navigation_;
    DrawProgram::Parts walkParts_;
    bool redrawAsked_ = false;
    bool showAsked_ = false;
    // The window was shown without the keys: the first time that it has them they go to the field.
    bool focusFieldNext_ = false;
    std::vector<std::function<void()>> afterWalk_;
    bool givenUp_ = false;
};

}  // namespace kvt
