#include "console/state.h"

#include <rapidjson/writer.h>

#include <algorithm>
#include <iterator>

#include "basic/code_page.h"
#include "basic/number.h"

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
        if (std::any_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80; })) {
            Utf8(ToUtf8(text));
        } else {
            Utf8(text);
        }
    }
    // A text that is UTF-8 already, such as a file's name.
    void Utf8(std::string_view text) {
        json_.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    }

    // A 32-bit float as a plain number.
    void Float(float value) {
        const std::string number = PlainNumber(value);
        json_.RawValue(number.data(), number.size(), rapidjson::kNumberType);
    }

    void Member(std::string_view key, std::string_view text) {
        Key(key);
        Text(text);
    }
    void Member(std::string_view key, bool value) {
        Key(key);
        json_.Bool(value);
    }
    void Member(std::string_view key, int value) {
        Key(key);
        json_.Int(value);
    }
    void Member(std::string_view key, const char*) = delete;

    template <class Items, class Write>
    void Array(std::string_view key, const Items& items, Write write) {
        Key(key);
        json_.StartArray();
        for (const auto& item : items) write(item);
        json_.EndArray();
    }

    JsonWriter& Json() { return json_; }

private:
    JsonWriter json_;
};

void WriteScalars(StateWriter& out, const Workbench& workbench) {
    const ProgramStore& store = workbench.Store;
    out.Member("machine", std::string_view(store.Machine));
    out.Member("metric", store.Metric);
    out.Member("horizontal", store.Horizontal);
    out.Member("disableLimitsCheck", store.DisableLimitsCheck);
    out.Member("notes", std::string_view(workbench.File.txtFileNotes.Text));
    out.Member("lineCount", store.LineCount());
    out.Member("maxLines", store.MaxLines());
    out.Member("endCodePresent", store.EndCodePresent);
    out.Member("arcPresent", store.ArcPresent);
    out.Member("programChanged", store.ProgramChanged);
    out.Member("errorFlagged", store.ErrorFlagged);
    out.Member("errorRow", store.ErrorRow);
    out.Key("errorLine");
    out.Float(store.ErrorLine);
    out.Member("errorHeader", std::string_view(store.lvCncProgram.Header(ErrorHeader).Text));
    out.Member("absoluteMode", store.AbsoluteMode);
    out.Member("radiusMode", store.RadiusMode);
    out.Member("activePlane", std::string_view(store.ActivePlane));
    out.Member("editorRunMode", store.EditorRunMode);
    out.Member("transmitActive", store.TransmitActive);
    out.Member("oldFeedA", std::string_view(workbench.Entry.OldFeedA));
    out.Member("oldFeedB", std::string_view(workbench.Entry.OldFeedB));
}

void WriteRows(StateWriter& out, const ListView& list) {
    JsonWriter& json = out.Json();
    out.Key("rows");
    json.StartArray();
    for (int i = 1; i <= list.Count(); ++i) {
        const ListRow& row = list.Row(i);
        json.StartArray();
        for (int c = 0; c < SubItemCount; ++c) out.Text(row[c]);
        json.EndArray();
    }
    json.EndArray();

    out.Key("rowColors");
    json.StartArray();
    for (int i = 1; i <= list.Count(); ++i) json.Uint(list.Row(i).ForeColor);
    json.EndArray();

    out.Member("selectedRow", list.SelectedRow());
    out.Member("topRow", list.TopRow());
    out.Key("columnWidths");
    json.StartArray();
    for (int header = 1; header <= SubItemCount; ++header) json.Int(list.Header(header).Width);
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

}  // namespace

void WriteState(JsonSink& sink, std::string_view file, const Workbench& workbench,
                const MemoryDialogs& dialogs) {
    StateWriter out(sink);
    out.Begin();
    out.Key("file");
    out.Utf8(file);
    WriteScalars(out, workbench);
    WriteRows(out, workbench.Store.lvCncProgram);
    WriteLabels(out, workbench);
    out.Array("messages", dialogs.Shown, [&](const MessageBox& box) {
        out.Begin();
        out.Member("text", std::string_view(box.Text));
        out.Member("title", std::string_view(box.Title));
        out.Member("icon", std::string_view(iconNames[static_cast<std::size_t>(box.Picture)]));
        out.Member("buttons", std::string_view(buttonNames[static_cast<std::size_t>(box.Choice)]));
        out.End();
    });
    out.Array("log", workbench.Log.Records(), [&](const ErrorLog::Record& record) {
        out.Begin();
        out.Member("number", record.Number);
        out.Member("description", std::string_view(record.Description));
        out.Member("procedure", std::string_view(record.Procedure));
        out.End();
    });
    out.End();
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
