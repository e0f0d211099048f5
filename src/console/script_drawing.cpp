#include "console/script_drawing.h"

#include <algorithm>

#include "basic/code_page.h"
#include "basic/number.h"
#include "console/drawing.h"
#include "platform/clicks.h"

namespace kvt::script {

namespace {

PictureBox& Field(ScriptRun& run) { return run.Session.Workbench().Draw.Controls.pbxDrawField; }

// The field, where the mouse can come to it.
PictureBox* FieldInReach(ScriptRun& run) {
    PictureBox& field = Field(run);
    if (const char* const why = run.Session.WhyOutOfReach(field)) {
        run.Note("pbxDrawField: " + std::string(why));
        return nullptr;
    }
    return &field;
}

// The operations with numbers from mark on that the field still has.
std::span<const DrawOperation> Since(const PictureBox& field, long long mark) {
    const auto& all = field.Operations();
    const long long dropped = std::max(0LL, mark - field.OperationsBefore());
    return std::span(all).subspan(std::min(static_cast<std::size_t>(dropped), all.size()));
}

long long Made(const PictureBox& field) {
    return field.OperationsBefore() + static_cast<long long>(field.Operations().size());
}

}  // namespace

void MouseMove(ScriptRun& run, const Arguments& args) {
    const PictureBox* const field = FieldInReach(run);
    if (!field || !field->OnMouseMove) return;
    field->OnMouseMove(0, 0, static_cast<float>(args.Number(0)), static_cast<float>(args.Number(1)));
}

namespace {

void Press(ScriptRun& run, const Arguments& args, int held) {
    PictureBox* const field = FieldInReach(run);
    if (!field) return;
    run.Session.Platform.Focus.SetFocus(*field);
    if (!FieldInReach(run) || !field->OnMouseDown) return;
    field->OnMouseDown(mouse::Left, held, static_cast<float>(args.Number(0)),
                       static_cast<float>(args.Number(1)));
}

}  // namespace

void MouseDown(ScriptRun& run, const Arguments& args) { Press(run, args, 0); }
void CtrlMouseDown(ScriptRun& run, const Arguments& args) { Press(run, args, mouse::CtrlHeld); }

// Both presses of it.
void DoubleClick(ScriptRun& run, const Arguments& args) {
    MouseDown(run, args);
    const PictureBox* const field = FieldInReach(run);
    if (!field || !field->OnDoubleClick) return;
    field->OnDoubleClick(mouse::Left, 0, static_cast<float>(args.Number(0)),
                         static_cast<float>(args.Number(1)));
}

// With the middle button; the field moves below the pointer.
void MouseDrag(ScriptRun& run, const Arguments& args) {
    const PictureBox* const field = FieldInReach(run);
    if (!field || !field->OnMouseDown || !field->OnMouseMove) return;
    const auto place = [&](int argument) { return static_cast<float>(args.Number(argument)); };
    field->OnMouseDown(mouse::Middle, 0, place(0), place(1));
    field->OnMouseMove(mouse::Middle, 0, place(2), place(3));
}

void MouseWheel(ScriptRun& run, const Arguments& args) {
    const PictureBox* const field = FieldInReach(run);
    if (!field || !field->OnMouseWheel) return;
    field->OnMouseWheel({0, static_cast<double>(args.Number(2)), false, static_cast<float>(args.Number(0)),
                         static_cast<float>(args.Number(1))});
}

void Scroll(ScriptRun& run, const Arguments& args) {
    Control& control = run.Session.Named(args.Text(0));
    auto* const range = dynamic_cast<RangeControl*>(&control);
    if (!range) throw ScriptError{Quoted(args.Text(0)) + " is no scroll bar"};
    if (const char* const why = run.Session.WhyOutOfReach(control))
        return run.Note(args.Text(0) + ": " + why);
    range->SetValue(args.Number(1));
}

void PrintOperations(ScriptRun& run, const Arguments&) {
    const PictureBox& field = Field(run);
    JsonSink out(stdout);
    WriteOperations(out, Since(field, run.OperationsMark));
    out.Put('\n');
    run.OperationsMark = run.CountMark = Made(field);
}

void ExpectOperation(ScriptRun& run, const Arguments& args) {
    const std::span<const DrawOperation> operations = Since(Field(run), run.OperationsMark);
    const int count = static_cast<int>(operations.size());
    const int number = args.Number(0) < 0 ? count + args.Number(0) + 1 : args.Number(0);
    if (number < 1 || number > count)
        return run.Fail(Quoted(args.Last()), "no such operation among " + PlainNumber(count));
    const std::optional<std::string> text =
        OperationField(operations[static_cast<std::size_t>(number) - 1], args.Text(1));
    if (!text) return run.Fail(Quoted(args.Last()), "no field " + Quoted(args.Text(1)));
    run.Compare(args.Last(), *text);
}

void ExpectOperationCount(ScriptRun& run, const Arguments& args) {
    const PictureBox& field = Field(run);
    const std::span<const DrawOperation> operations = Since(field, run.CountMark);
    const auto count = std::count_if(operations.begin(), operations.end(), [&](const DrawOperation& one) {
        return OperationName(one) == args.Text(0);
    });
    run.CountMark = Made(field);
    run.Compare(args.Last(), PlainNumber(static_cast<std::int64_t>(count)));
}

void ExpectPicture(ScriptRun& run, const Arguments& args) {
    FaultyPlatform& platform = run.Session.Platform;
    const std::string& where = args.Last();
    bool there = false;
    if (where == "clipboard") {
        there = platform.Clipboard.Picture.Width > 0;
    } else if (where == "printer") {
        there = platform.Printer.Drawings > run.ExpectedDrawings;
        run.ExpectedDrawings = platform.Printer.Drawings;
    } else {
        std::string content;
        try {
            content = run.Session.Files().ReadWhole(NameFromSystem(where));
        } catch (const RunTimeError&) {
            return run.Fail("a picture " + Quoted(where), "no such file");
        }
        for (const char* const beginning : {"BM", "\x89PNG", "%PDF", "<svg"})
            there = there || content.starts_with(beginning);
    }
    if (!there) run.Fail("a picture " + Quoted(where), "none");
}

}  // namespace kvt::script
