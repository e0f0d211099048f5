#include "console/drawing.h"

#include <rapidjson/writer.h>

#include <new>

#include "basic/code_page.h"
#include "basic/number.h"
#include "basic/text.h"
#include "console/commands.h"
#include "console/loaded_file.h"
#include "console/output_file.h"
#include "console/state.h"
#include "system/offscreen_window.h"

namespace kvt {

namespace {

using OperationKind = DrawOperation::Kind;

struct OperationFieldName {
    const char* Name;
    bool OfLine, OfBox, OfCircle;
    std::string (*Text)(const DrawOperation&);
};

std::string AngleText(const DrawOperation& one, float angle) {
    return one.IsFullCircle() ? "null" : PlainNumber(angle);
}
std::string Whole(std::int64_t value) { return PlainNumber(value); }

// In the order in which they are listed.
constexpr OperationFieldName fields[] = {
    {"x1", true, true, false, [](const DrawOperation& one) { return PlainNumber(one.X1); }},
    {"y1", true, true, false, [](const DrawOperation& one) { return PlainNumber(one.Y1); }},
    {"x2", true, true, false, [](const DrawOperation& one) { return PlainNumber(one.X2); }},
    {"y2", true, true, false, [](const DrawOperation& one) { return PlainNumber(one.Y2); }},
    {"x", false, false, true, [](const DrawOperation& one) { return PlainNumber(one.X1); }},
    {"y", false, false, true, [](const DrawOperation& one) { return PlainNumber(one.Y1); }},
    {"radius", false, false, true, [](const DrawOperation& one) { return PlainNumber(one.Radius()); }},
    {"start", false, false, true, [](const DrawOperation& one) { return AngleText(one, one.Start); }},
    {"end", false, false, true, [](const DrawOperation& one) { return AngleText(one, one.End); }},
    {"color", true, true, true, [](const DrawOperation& one) { return Whole(one.Ink); }},
    {"width", true, true, true, [](const DrawOperation& one) { return Whole(one.Width); }},
    {"style", true, true, true, [](const DrawOperation& one) { return Whole(one.Style); }},
    {"mode", true, true, false, [](const DrawOperation& one) { return Whole(one.Mode); }},
    {"fill", false, true, true, [](const DrawOperation& one) { return Whole(one.Fill); }},
};

bool HasField(const DrawOperation& operation, const OperationFieldName& field) {
    switch (operation.What) {
        case OperationKind::Line: return field.OfLine;
        case OperationKind::Box: return field.OfBox;
        case OperationKind::Circle: return field.OfCircle;
        case OperationKind::Clear:
        case OperationKind::Picture: break;
    }
    return operation.What == OperationKind::Clear && std::string_view(field.Name) == "color";
}

// A file with its drawing: the window maximised and fitted. Nobody looks on, so what waits for a user goes on.
class DrawnFile {
public:
    explicit DrawnFile(const std::string& file)
        : Loaded(file),
          window_(Loaded.Workbench->Draw.Controls.frmDraw, Loaded.Platform.Screen, Loaded.Platform.Focus) {
        if (Loaded.Error()) return;
        DrawWindow& draw = Loaded.Workbench->Draw;
        Loaded.Platform.System.Watch(draw.Controls.frmDraw);
        Loaded.Platform.System.NextEvent = [&draw] {
            switch (draw.State.Wait) {
                case UserWait::Click: draw.State.EndClickWait(); return true;
                case UserWait::Step: draw.Controls.cmdStep.Click(); return true;
                case UserWait::None: break;
            }
            return false;
        };
        draw.Show();
        if (draw.GivenUp()) {
            Complain(file, "the drawing was ended after " +
                               PlainNumber(std::int64_t{Loaded.Platform.System.GiveUpAfter}) +
                               " turns: this program never ends");
        }
    }

    LoadedFile Loaded;
    // A drawing that never ends is a finding too.
    int Status() const {
        return Loaded.Workbench->Draw.GivenUp() ? std::max(Loaded.Status(), int{status::Finding})
                                                : Loaded.Status();
    }
    std::span<const DrawOperation> Operations() const {
        return Loaded.Workbench->Draw.Controls.pbxDrawField.Operations();
    }

private:
    OffscreenWindow window_;
};

int DrawOneAsJson(const std::string& file, JsonSink& out) {
    const DrawnFile drawn(file);
    int result = status::Usage;
    if (const char* error = drawn.Loaded.Error()) {
        Complain(file, error);
        WriteFileError(out, file, error);
    } else {
        WriteOperations(out, drawn.Operations());
        result = drawn.Status();
    }
    out.Put('\n');
    return result;
}

}  // namespace

std::string_view OperationName(const DrawOperation& operation) {
    switch (operation.What) {
        case OperationKind::Clear: return "clear";
        case OperationKind::Line: return "line";
        case OperationKind::Box: return "box";
        case OperationKind::Circle: return "circle";
        case OperationKind::Picture: break;
    }
    return "picture";
}

std::optional<std::string> OperationField(const DrawOperation& operation, std::string_view field) {
    if (field == "op") return std::string(OperationName(operation));
    for (const OperationFieldName& one : fields) {
        if (field == one.Name && HasField(operation, one)) return one.Text(operation);
    }
    return std::nullopt;
}

void WriteOperations(JsonSink& out, std::span<const DrawOperation> operations) {
    rapidjson::Writer<JsonSink> json(out);
    const auto key = [&](std::string_view name) {
        json.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
    };
    json.StartArray();
    for (const DrawOperation& one : operations) {
        json.StartObject();
        key("op");
        const std::string_view name = OperationName(one);
        json.String(name.data(), static_cast<rapidjson::SizeType>(name.size()));
        for (const OperationFieldName& field : fields) {
            if (!HasField(one, field)) continue;
            key(field.Name);
            const std::string text = field.Text(one);
            json.RawValue(text.data(), text.size(), rapidjson::kNumberType);
        }
        json.EndObject();
    }
    json.EndArray();
}

int DrawAsJson(const std::vector<std::string>& files) {
    int worst = status::Succeeded;
    JsonSink out(stdout);
    for (const std::string& file : files) {
        int one = status::Usage;
        try {
            one = DrawOneAsJson(file, out);
        } catch (const std::bad_alloc&) {
            Complain(file, "is too large for the memory of this machine");
        }
        worst = std::max(worst, one);
    }
    return worst;
}

std::string DrawingAsSvg(const std::string& file) {
    const DrawnFile drawn(file);
    return drawn.Loaded.Error() ? std::string() : drawn.Loaded.Workbench->Draw.Output.Picture(".SVG");
}

int DrawPicture(const std::string& file, const std::string& out) {
    const std::string kind = PictureKindOf(out);
    if (!IsPictureKind(kind)) {
        Complain(out, "the name of a picture ends in .svg, .pdf, .png or .bmp");
        return status::Usage;
    }
    if (const std::string why = WhyNotWritten(out, file); !why.empty()) return Complain(out, why);
    DrawnFile drawn(file);
    if (const char* error = drawn.Loaded.Error()) {
        Complain(file, error);
        return status::Usage;
    }
    PrepareToWrite(drawn.Loaded.Platform.Files);
    const bool written = Attempt("draw", [&] {
        drawn.Loaded.Platform.Files.WriteWhole(NameFromSystem(out),
                                               drawn.Loaded.Workbench->Draw.Output.Picture(kind));
    });
    if (written) return drawn.Status();
    Complain(out, "could not be written");
    return status::Usage;
}

}  // namespace kvt
