#include "shell/language.h"

#include <algorithm>

#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/settings_file.h"
#include "program/code_tables.h"

namespace kvt {

namespace {

constexpr const char* loadModuleName = "LoadLanguageModule";
constexpr int firstNamedHeader = 2;
constexpr int mostReports = 100;  // of one section

// The control of a row; null where no window has it.
Control* ControlOf(const std::vector<Form*>& forms, const LabelRow& row) {
    const std::string_view name = row.Control;
    const std::size_t point = name.find('.');
    const std::string_view formName = name.substr(0, point);
    for (Form* form : forms) {
        if (!EqualIgnoringCase(form->Name(), formName)) continue;
        return point == std::string_view::npos ? form : form->FindControl(name.substr(point + 1), row.Index);
    }
    return point == std::string_view::npos ? forms.front()->FindControl(name, row.Index) : nullptr;
}

template <class Kind, class... More>
TextProperty* CaptionAs(Control& control) {
    if (auto* one = dynamic_cast<Kind*>(&control)) return &one->Caption;
    if constexpr (sizeof...(More) > 0) {
        return CaptionAs<More...>(control);
    } else {
        return nullptr;
    }
}

// The text that a row sets in its control; null where the control has none.
TextProperty* TextOf(Control& control, ShownText what) {
    if (what == ShownText::ToolTip) return &control.ToolTip;
    if (what == ShownText::Name) return &control.AccessibleName;
    return CaptionAs<Label, CheckBox, OptionButton, CommandButton, Frame, Menu, Form>(control);
}

int TabOf(const std::vector<std::string>& builtIn, std::string_view caption) {
    const auto found = std::find(builtIn.begin(), builtIn.end(), caption);
    return found == builtIn.end() ? -1 : static_cast<int>(found - builtIn.begin());
}

ListBox* ListOf(const Form& form, const ListSection& section) {
    return dynamic_cast<ListBox*>(form.FindControl(section.List));
}

// The code stays, the description is translated.
void DescribeEntry(ListBox& list, int index, const std::string& description) {
    const std::string code(Left(list.Entry(index), 4));
    if (!Trim(description).empty()) list.SetEntry(index, code + "\t" + description);
}

}  // namespace

ModuleLoader::ModuleLoader(std::vector<Form*> windows, const Parts& parts)
    : windows_(std::move(windows)), parts_(parts) {
    NameControls();
}

void ModuleLoader::NameControls() {
    for (const LabelRow& row : LabelRows()) {
        Control* const control = row.What == ShownText::Name ? ControlOf(windows_, row) : nullptr;
        if (control) control->AccessibleName = row.Key;
    }
}

void ModuleLoader::LoadLanguageModule(const std::string& fileName) {
    FileService& files = parts_.Platform.Files;
    Texts& texts = parts_.Language;
    if (fileName.empty() || !files.Exists(fileName)) return;
    KeepBuiltIn();
    texts.ModuleFile = fileName;
    LanguageModule module;
    Attempt(loadModuleName, [&] { module = ReadLanguageModule(files.ReadWhole(fileName)); });
    // Changes nothing but the name of the module in force.
    if (module.PlaceHolder) return;
    texts.LanguageName.clear();
    texts.TranslatedBy.clear();
    texts.LanguageCode.clear();
    for (const LanguageSection& section : module.Sections) ApplySection(section);
    ShowTexts();
}

void ModuleLoader::KeepBuiltIn() {
    if (builtIn_) return;
    builtIn_.emplace();
    for (const LabelRow& row : LabelRows()) {
        Control* const control = ControlOf(windows_, row);
        TextProperty* const text =
            control && row.What != ShownText::Tab ? TextOf(*control, row.What) : nullptr;
        // A second line tells only how things are now.
        if (text) builtIn_->Labels.emplace_back(text, text->Get().substr(0, text->Get().find(LineEnd)));
    }
    for (const ListSection& one : ListSections()) {
        if (ListBox* const list = ListOf(*windows_.front(), one))
            builtIn_->Lists.emplace_back(list, list->Entries());
    }
    for (int header = firstNamedHeader; header <= column::Count; ++header)
        builtIn_->Headers.push_back(parts_.List.Header(header).Text);
    builtIn_->Tabs = parts_.Main.tabSettings.Captions;
    builtIn_->EntryCaption = parts_.Language.EntryCaption;
    builtIn_->ErrorHeaderText = parts_.Language.ErrorHeaderText;
}

void ModuleLoader::UseEnglish() {
    Texts& texts = parts_.Language;
    texts.ModuleFile.clear();
    texts.LanguageName.clear();
    texts.TranslatedBy.clear();
    texts.LanguageCode.clear();
    if (!builtIn_) return;
    for (const auto& [text, english] : builtIn_->Labels) *text = english;
    for (const auto& [list, entries] : builtIn_->Lists) {
        for (int i = 0; i < list->Count(); ++i) list->SetEntry(i, entries[static_cast<std::size_t>(i)]);
    }
    int header = firstNamedHeader;
    for (const std::string& text : builtIn_->Headers) parts_.List.SetHeaderText(header++, text);
    int page = 0;
    for (const std::string& tab : builtIn_->Tabs) parts_.Main.tabSettings.SetCaption(page++, tab);
    for (const TableSection& one : TableSections()) one.Table(texts).Clear();
    texts.EntryCaption = builtIn_->EntryCaption;
    texts.ErrorHeaderText = builtIn_->ErrorHeaderText;
    ApplyToolbar(true);
    parts_.Help.UseEnglish();
    ShowTexts();
}

void ModuleLoader::ShowTexts() {
    parts_.Platform.System.UseLanguage(parts_.Language.LanguageCode);
    Run(OnTexts);
}

void ModuleLoader::ApplySection(const LanguageSection& section) {
    ApplyLabels(section);
    ApplyOrderedLines(section);
    if (EqualIgnoringCase(section.Name, language_section::System)) {
        for (const LanguageLine& line : section.Lines) ApplySystemLine(line);
    }
    if (EqualIgnoringCase(section.Name, language_section::Toolbar))
        ApplyToolbar(EqualIgnoringCase(parts_.Language.LanguageName, "English"));
}

void ModuleLoader::ApplyLabels(const LanguageSection& section) {
    for (const LabelRow& row : LabelRows()) {
        if (!EqualIgnoringCase(section.Name, row.Section)) continue;
        Control* const control = ControlOf(windows_, row);
        if (!control) continue;
        for (const LanguageLine& line : section.Lines) {
            if (EqualIgnoringCase(line.Key, row.Key) && !line.Value.empty())
                SetLabel(*control, row, line.Value);
        }
    }
}

void ModuleLoader::SetLabel(Control& control, const LabelRow& row, const std::string& value) {
    if (row.What == ShownText::Tab) {
        const int page = TabOf(builtIn_->Tabs, row.Key);
        if (page >= 0) parts_.Main.tabSettings.SetCaption(page, value);
        return;
    }
    if (TextProperty* text = TextOf(control, row.What)) *text = value;
    if (&control == &parts_.EntryFrame) parts_.Language.EntryCaption = value;
}

void ModuleLoader::ApplyOrderedLines(const LanguageSection& section) {
    const auto is = [&](const char* name) { return EqualIgnoringCase(section.Name, name); };
    const auto inOrder = [&](int first, const auto& apply) {
        int place = first;
        int failures = 0;
        for (const LanguageLine& line : section.Lines) {
            // What lies beyond the end is reported, but not a million times.
            if (!Attempt(loadModuleName, [&] { apply(place, line.Value); }) && ++failures == mostReports)
                return;
            ++place;
        }
    };
    for (const TableSection& one : TableSections()) {
        if (is(one.Section))
            inOrder(1, [&](int i, const std::string& text) { one.Table(parts_.Language).Set(i, text); });
    }
    for (const ListSection& one : ListSections()) {
        ListBox* const list = is(one.Section) ? ListOf(*windows_.front(), one) : nullptr;
        if (list) inOrder(0, [&](int i, const std::string& text) { DescribeEntry(*list, i, text); });
    }
    if (is(language_section::Headers))
        inOrder(firstNamedHeader, [&](int i, const std::string& text) { ApplyHeader(i, text); });
}

void ModuleLoader::ApplySystemLine(const LanguageLine& line) {
    if (EqualIgnoringCase(line.Key, "Language Name")) parts_.Language.LanguageName = line.Value;
    if (EqualIgnoringCase(line.Key, "Translated by")) parts_.Language.TranslatedBy = line.Value;
    if (EqualIgnoringCase(line.Key, "Language Code")) parts_.Language.LanguageCode = line.Value;
    if (EqualIgnoringCase(line.Key, "Help File Name") && !line.Value.empty())
        parts_.Help.UseLanguage(line.Value);
}

// Words in another language would not fit: the pictures remain.
void ModuleLoader::ApplyToolbar(bool english) {
    for (const auto& button : parts_.Main.cmdTopButtons) {
        button->Caption = english ? CaptionOf(static_cast<TopButton>(button->Index())) : "";
    }
}

void ModuleLoader::ApplyHeader(int header, const std::string& text) {
    ListView& list = parts_.List;
    // A header past the last one is error 9 also where it would be left.
    list.SetHeaderText(header, text.empty() ? list.Header(header).Text : text);
    if (header == ErrorHeader && !text.empty()) parts_.Language.ErrorHeaderText = text;
}

void ModuleLoader::WriteLabels(LanguageModuleText& module) const {
    std::string_view section;
    std::string_view key;
    for (const LabelRow& row : LabelRows()) {
        if (section != row.Section) {
            section = row.Section;
            key = {};
            module.Section(section);
        }
        if (key == row.Key) continue;
        key = row.Key;
        Control* const control = ControlOf(windows_, row);
        const TextProperty* text = control ? TextOf(*control, row.What) : nullptr;
        const bool isEntry = control == &parts_.EntryFrame;  // it shows the code that is entered
        // The tool tip of the arrows tells the scale in force, not what they do.
        if (control && control->Kind() == ControlKind::UpDown) text = nullptr;
        const std::string shown = isEntry ? parts_.Language.EntryCaption : text ? text->Get() : std::string();
        module.Line(key, shown.empty() ? std::string(key) : shown);
    }
}

std::string ModuleLoader::WriteModule() const {
    LanguageModuleText module;
    module.Comment("Put your words behind each =. What stands in a comment is the English.");
    module.Section(language_section::System);
    const Texts& texts = parts_.Language;
    module.Line("Language Name", texts.LanguageName.empty() ? "English" : texts.LanguageName);
    module.Line("Language Code", texts.LanguageCode.empty() ? "en" : texts.LanguageCode);
    module.Line("Translated by", texts.TranslatedBy);
    module.Line("Help File Name", "");

    WriteLabels(module);
    const auto numbered = [&](int number, std::string_view text) {
        if (!Trim(text).empty()) module.Comment(Trim(text));
        module.Line(PlainNumber(number), Trim(text));
    };
    for (const TableSection& one : TableSections()) {
        const TextTable& table = one.Table(parts_.Language);
        if (&table == &texts.DrawViewTexts) continue;  // written with its labels
        module.Section(one.Section);
        for (int i = 1; i <= table.Size(); ++i) numbered(i, table.At(i));
    }
    for (const ListSection& one : ListSections()) {
        const ListBox* const list = ListOf(*windows_.front(), one);
        if (!list) continue;
        module.Section(one.Section);
        for (const std::string& entry : list->Entries()) {
            module.Comment(EntryDescription(entry));
            module.Line(Trim(Left(entry, 4)), EntryDescription(entry));
        }
    }
    module.Section(language_section::Headers);
    for (int header = firstNamedHeader; header <= column::Count; ++header) {
        numbered(header, header == ErrorHeader ? std::string_view(texts.ErrorHeaderText)
                                               : parts_.List.Header(header).Text);
    }
    return module.Text();
}

}  // namespace kvt
