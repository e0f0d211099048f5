#include "console/state.h"

#include <rapidjson/writer.h>

#include <algorithm>
#include <iterator>

#include "basic/code_page.h"
#include "console/control_access.h"

namespace kvt {

namespace {

using JsonWriter = rapidjson::Writer<JsonSink>;

const char* const iconNames[] = {"none", "information", "exclamation", "question", "critical"};
const char* const buttonNames[] = {"ok", "yesno", "yesnocancel"};

class StateWriter {
public:
    explicit StateWriter(JsonSink& out) : json_(out) {}

    void Begin() { json_.StartObject(); }
    void End() { json_.EndObject(); }

    void Key(std::string_view key) { json_.Key(key.data(), static_cast<rapidjson::SizeType>(key.size())); }

    // A text of the program's code page.
    void Text(std::string_view text) {
        const bool ascii = std::all_of(text.begin(), text.end(),
                                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        if (ascii) {
            String(text);
        } else {
            String(ToUtf8(text));
        }
    }
    // One that may contain file names.
    void Shown(std::string_view text) { String(ShownToUtf8(text)); }
    // A file's name, which is UTF-8 as a rule but may be any bytes.
    void Utf8(std::string_view text) { IsUtf8(text) ? String(text) : Text(text); }

    void Any(const PlainValue& value) {
        if (const auto* text = std::get_if<std::string>(&value)) return Shown(*text);
        const std::string number = TextOf(value);
        json_.RawValue(number.data(), number.size(), rapidjson::kNumberType);
    }

    void Member(std::string_view key, std::string_view text) {
        Key(key);
        Text(text);
    }
    void Member(std::string_view key, int value) {
        Key(key);
        json_.Int(value);
    }
    void Member(std::string_view key, const PlainValue& value) {
        Key(key);
        Any(value);
    }
    void Member(std::string_view key, const char*) = delete;

    JsonWriter& Json() { return json_; }

private:
    void String(std::string_view utf8) {
        json_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
    }

    JsonWriter json_;
};

struct Scalar {
    const char* Name;
    PlainValue (*Read)(const Workbench& workbench);
};

using Source = const Workbench&;

// In the order of the object: what comes before the rows, and what comes after them.
constexpr Scalar programScalars[] = {
    {"machine", [](Source w) -> PlainValue { return std::string(NameOf(w.Store.Machine)); }},
    {"metric", [](Source w) -> PlainValue { return w.Store.Metric; }},
    {"horizontal", [](Source w) -> PlainValue { return w.Store.Horizontal; }},
    {"disableLimitsCheck", [](Source w) -> PlainValue { return w.Store.DisableLimitsCheck; }},
    {"notes", [](Source w) -> PlainValue { return w.File.txtFileNotes.Text.Get(); }},
    {"lineCount", [](Source w) -> PlainValue { return w.Store.LineCount(); }},
    {"maxLines", [](Source w) -> PlainValue { return w.Store.MaxLines(); }},
    {"endCodePresent", [](Source w) -> PlainValue { return w.Store.EndCodePresent; }},
    {"arcPresent", [](Source w) -> PlainValue { return w.Store.ArcPresent; }},
    {"programChanged", [](Source w) -> PlainValue { return w.Store.ProgramChanged; }},
    {"errorFlagged", [](Source w) -> PlainValue { return w.Store.ErrorFlagged; }},
    {"errorRow", [](Source w) -> PlainValue { return w.Store.ErrorRow; }},
    {"errorLine", [](Source w) -> PlainValue { return w.Store.ErrorLine; }},
    {"errorHeader", [](Source w) -> PlainValue { return w.Store.lvCncProgram.Header(ErrorHeader).Text; }},
    {"absoluteMode", [](Source w) -> PlainValue { return w.Store.AbsoluteMode; }},
    {"radiusMode", [](Source w) -> PlainValue { return w.Store.RadiusMode; }},
    {"activePlane", [](Source w) -> PlainValue { return w.Store.ActivePlane; }},
    {"editorRunMode", [](Source w) -> PlainValue { return w.Store.EditorRunMode; }},
    {"transmitActive", [](Source w) -> PlainValue { return w.Store.TransmitActive; }},
    {"oldFeedA", [](Source w) -> PlainValue { return w.Entry.OldFeedA; }},
    {"oldFeedB", [](Source w) -> PlainValue { return w.Entry.OldFeedB; }},
};
constexpr Scalar listScalars[] = {
    {"selectedRow", [](Source w) -> PlainValue { return w.Store.lvCncProgram.SelectedRow(); }},
    {"topRow", [](Source w) -> PlainValue { return w.Store.lvCncProgram.TopRow(); }},
};

void WriteScalars(StateWriter& out, std::span<const Scalar> scalars, const Workbench& workbench) {
    for (const Scalar& scalar : scalars) out.Member(scalar.Name, scalar.Read(workbench));
}

void WriteRows(StateWriter& out, const Workbench& workbench) {
    const ListView& list = workbench.Store.lvCncProgram;
    JsonWriter& json = out.Json();
    out.Key("rows");
    json.StartArray();
    for (int i = 1; i <= list.Count(); ++i) {
        const ListRow& row = list.Row(i);
        json.StartArray();
        for (int c = 0; c < column::Count; ++c) out.Text(row[c]);
        json.EndArray();
    }
    json.EndArray();

    out.Key("rowColors");
    json.StartArray();
    for (int i = 1; i <= list.Count(); ++i) json.Uint(list.Row(i).ForeColor);
    json.EndArray();

    WriteScalars(out, listScalars, workbench);
    out.Key("columnWidths");
    json.StartArray();
    for (int header = 1; header <= column::Count; ++header) json.Int(list.Header(header).Width);
    json.EndArray();
}

void WriteLabels(StateWriter& out, const Workbench& workbench) {
    const InterpreterControls& results = workbench.Results;
    out.Key("labels");
    out.Begin();
    for (const Label* label :
         {&results.lblPPLines, &results.lblPPLinesExe, &results.lblPPMachineTime,
          &workbench.Machine.lblPPUnits, &results.lblXAxisMin, &results.lblXAxisMax, &results.lblYAxisMin,
          &results.lblYAxisMax, &results.lblZAxisMin, &results.lblZAxisMax, &results.lblXAxisTravel,
          &results.lblYAxisTravel, &results.lblZAxisTravel}) {
        out.Member(label->Name(), std::string_view(label->Caption));
    }
    out.End();
}

void WriteBoxes(StateWriter& out, std::span<const MessageBox> boxes) {
    out.Json().StartArray();
    for (const MessageBox& box : boxes) {
        out.Begin();
        out.Key("text");
        out.Shown(box.Text);
        out.Member("title", std::string_view(box.Title));
        out.Member("icon", IconName(box.Picture));
        out.Member("buttons", ButtonsName(box.Choice));
        out.End();
    }
    out.Json().EndArray();
}

void WriteLog(StateWriter& out, const Workbench& workbench) {
    out.Key("log");
    out.Json().StartArray();
    for (const ErrorLog::Record& record : workbench.Log.Records()) {
        out.Begin();
        out.Member("number", record.Number);
        out.Member("description", std::string_view(record.Description));
        out.Member("procedure", std::string_view(record.Procedure));
        out.End();
    }
    out.Json().EndArray();
}

// The members that every state has.
void WriteCommon(StateWriter& out, std::string_view file, const Workbench& workbench,
                 const OffscreenDialogs& dialogs) {
    out.Key("file");
    out.Utf8(file);
    WriteScalars(out, programScalars, workbench);
    WriteRows(out, workbench);
    WriteLabels(out, workbench);
    out.Key("messages");
    WriteBoxes(out, dialogs.Shown);
    WriteLog(out, workbench);
}

void WriteControl(StateWriter& out, const std::vector<Form*>& forms, const Control& control) {
    out.Key(NameOf(forms, control));
    out.Begin();
    for (const auto& [name, value] : PropertiesOf(control)) out.Member(name, value);
    out.End();
}

}  // namespace

std::string_view IconName(Icon icon) { return iconNames[static_cast<std::size_t>(icon)]; }

std::string_view ButtonsName(Buttons buttons) { return buttonNames[static_cast<std::size_t>(buttons)]; }

std::optional<PlainValue> StateScalar(std::string_view name, const Workbench& workbench) {
    for (const std::span<const Scalar> scalars :
         {std::span<const Scalar>(programScalars), std::span<const Scalar>(listScalars)}) {
        for (const Scalar& scalar : scalars) {
            if (name == scalar.Name) return scalar.Read(workbench);
        }
    }
    return std::nullopt;
}

void WriteState(JsonSink& sink, std::string_view file, const Workbench& workbench,
                const OffscreenDialogs& dialogs) {
    StateWriter out(sink);
    out.Begin();
    WriteCommon(out, file, workbench, dialogs);
    out.End();
}

void WriteDump(JsonSink& sink, std::string_view file, Workbench& workbench, const OffscreenDialogs& dialogs,
               FocusService& focus) {
    const std::vector<Form*> forms = workbench.Forms();
    StateWriter out(sink);
    out.Begin();
    WriteCommon(out, file, workbench, dialogs);
    const Control* const focused = focus.Focused();
    out.Member("focus", std::string_view(focused ? NameOf(forms, *focused) : std::string()));
    out.Key("controls");
    out.Begin();
    for (const Form* form : forms) {
        WriteControl(out, forms, *form);
        for (const Control* control : form->Controls()) WriteControl(out, forms, *control);
    }
    out.End();
    out.End();
}

void WriteMessages(JsonSink& sink, std::span<const MessageBox> boxes) {
    StateWriter out(sink);
    WriteBoxes(out, boxes);
}

void WriteFileError(JsonSink& sink, std::string_view file, std::string_view error) {
    StateWriter out(sink);
    out.Begin();
    out.Key("file");
    out.Utf8(file);
    out.Key("error");
    out.Utf8(error);
    out.End();
}

}  // namespace kvt
