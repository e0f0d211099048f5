#pragma once

#include <functional>
#include <limits>
#include <vector>

#include "platform/controls.h"
#include "platform/operation_sources.h"
#include "platform/pictures.h"

namespace kvt {

namespace draw_style {
inline constexpr int Solid = 0, Dotted = 2;
}  // namespace draw_style

namespace draw_mode {
inline constexpr int Invert = 6, Copy = 13;
}  // namespace draw_mode

namespace fill_style {
inline constexpr int Solid = 0, Transparent = 1, DownwardDiagonal = 5;
}  // namespace fill_style

// One thing that was drawn. Places and lengths are twips on the field, angles radians.
struct DrawOperation {
    // Picture stands for operations that were exchanged for a picture: what comes behind is drawn on it.
    enum class Kind : std::uint8_t { Clear, Line, Box, Circle, Picture };
    // The angle that stands for none: the circle is a full one.
    static constexpr float NoAngle = std::numeric_limits<float>::infinity();

    Kind What = Kind::Clear;
    std::uint8_t Style = draw_style::Solid;
    std::uint8_t Mode = draw_mode::Copy;
    std::uint8_t Fill = fill_style::Transparent;
    Color Ink = 0;  // of a clearing: the background
    Color FillInk = 0;
    float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;  // a circle has its centre in X1, Y1 and its radius in X2
    float Start = NoAngle, End = NoAngle;  // counter-clockwise from Start to End, as it is seen
    int Width = 1;                         // pixels

    float Radius() const { return X2; }
    bool IsFullCircle() const { return Start == NoAngle; }
};

// A place on a field, or none. Twips.
struct FieldPlace {
    bool Shown = false;
    float X = 0, Y = 0;
    bool operator==(const FieldPlace&) const = default;
};

// What a mouse event tells: the button (1 left, 2 right, 4 middle; in a movement those that are held), the keys
// held (1 Shift, 2 Ctrl, 4 Alt), and where, in twips.
using MouseHandler = std::function<void(int button, int shift, float x, float y)>;

// A turn of the wheel: the keys held, how many notches, away from the user counting positive (a fine wheel gives parts of
// one), whether it goes sideways, and over which place, in twips.
struct WheelTurn {
    int Shift = 0;
    double Notches = 0;
    bool Sideways = false;
    float X = 0, Y = 0;
};

namespace mouse {
inline constexpr int Left = 1, Right = 2, Middle = 4;
inline constexpr int ShiftHeld = 1, CtrlHeld = 2, AltHeld = 4;
inline constexpr int DefaultPointer = 0, CrossPointer = 2;
}  // namespace mouse

// A field that is drawn on with a pen. What was drawn since the last clearing is kept as a list of operations, for
// every output to replay. It may contain other controls.
class PictureBox : public Control {
public:
    PictureBox(Form& form, std::string_view name) : Control(form, ControlKind::PictureBox, name) {}

    // The pen. What is drawn next is drawn with these; places are twips from the upper left corner.
    float CurrentX = 0;
    float CurrentY = 0;
    Color ForeColor = 0;
    int DrawWidth = 1;  // pixels
    int DrawStyle = draw_style::Solid;
    int DrawMode = draw_mode::Copy;
    int FillStyle = fill_style::Transparent;
    Color FillColor = 0;

    // Another colour clears the field to it.
    Property<Color> BackColor{*this, PropertyId::BackColor, 0xFFFFFF};

    // A small cross that a view shows over the drawing. It is no operation: no output has it.
    Property<FieldPlace> Cross{*this, PropertyId::Cross};

    // What came from these sources is shown lit up. It is no operation: no output has it.
    Property<SourceRange> Lit{*this, PropertyId::Lit};
    Property<Color> LitColor{*this, PropertyId::Lit, 0x00AAFF};

    int ScaleWidth() const { return Width; }
    int ScaleHeight() const { return Height; }

    // Clears the field to its background and puts the pen to 0, 0.
    void Cls();
    void MoveTo(double x, double y);
    // A line from a place, or from the pen; the pen ends at its end.
    void Line(double x1, double y1, double x2, double y2);
    void LineTo(double x, double y);
    // A rectangle from the pen to a corner, outlined with the pen and filled by FillStyle; the pen ends there.
    void BoxTo(double x, double y);
    // A circle, or an arc counter-clockwise from start to end (radians); the pen ends at the centre.
    void Circle(double x, double y, double radius);
    void Circle(double x, double y, double radius, double start, double end);

    // What is drawn from here on comes from a source of this number, such as a row of a program; 0 for none.
    void DrawFrom(int source) { sources_.Begin(source, CurrentX, CurrentY); }
    // Which sources the operations came from; of those that were exchanged for a picture nothing is known any more.
    const OperationSources& Sources() const { return sources_; }
    // Where the pen stood when a run was through; where it stands for the one under way.
    FieldPlace EndOf(const SourceRun& run) const;

    // Since the last clearing, which comes first.
    const std::vector<DrawOperation>& Operations() const { return operations_; }
    // How many operations were made before those of the list, in all the field's life.
    long long OperationsBefore() const { return before_; }

    // A list that has grown to this length is offered to OnFull. Who puts what it shows into Flattened gives true, and
    // the list begins again with that picture; without a taker nothing is dropped and the list grows on.
    static constexpr std::size_t MostOperations = 1'000'000;
    std::function<bool()> OnFull;
    // What a Picture operation stands for: the whole field, in any size.
    Pixels Flattened;

    MouseHandler OnMouseMove;
    MouseHandler OnMouseDown;
    // The second press of two quick ones of the left button on one place; without a handler it is a press as any other.
    MouseHandler OnDoubleClick;
    std::function<void(const WheelTurn& turn)> OnMouseWheel;

protected:
    void Changed(PropertyId id) override;

private:
    DrawOperation Pen(DrawOperation::Kind what) const;
    void Add(const DrawOperation& operation);
    void BeginList();

    std::vector<DrawOperation> operations_;
    OperationSources sources_;
    long long before_ = 0;
};

}  // namespace kvt
