#pragma once

#include <array>
#include <string>
#include <string_view>

#include "editor/entry_row.h"
#include "editor/value_range.h"
#include "platform/services.h"
#include "program/code_tables.h"
#include "program/program_store.h"
#include "program/texts.h"

namespace kvt {

// Which entry fields a code shows, what they are called and which range each takes.
class FieldLayout {
public:
    FieldLayout(EntryRow& entry, const ProgramStore& store, const CodeLists& lists, const Texts& texts,
                FocusService& focus);

    // Lays the fields out for a code: two digits, or the four-character form. The code is put into that form.
    // A code in no row of the table shows no field. The fields keep their texts.
    void InputFields(std::string& code);
    // Hides the five fields with their labels, and empties their ranges and tool tips.
    void HideInputFields();
    // Whether the fields are laid out for the code that stands in the row.
    bool IsLaidOutForCode() const;
    // What a field's label stands for, whatever the language calls it: X, I, F and so on, L for the number of a line.
    char LetterOf(std::size_t field);
    // A field with a range, and the unit where that is a length or a time: "X (1/100 mm): -5999 to 5999".
    std::string Described(const TextBox& field, const ValueRange& range);
    // The letter that a field's text was entered for, where the code in force has another one: a feed in the field that
    // has become that of the tool. 0 where the text is its own, and where it says nothing.
    char CarriedFrom(std::size_t field);
    // Gives labels, tool tips and the frame their texts anew: the language has changed.
    void RefreshTexts();
    // The feed buttons are enabled where the code that stands in the row is marked for them.
    void RefreshFeedButtons();
    // The frame names the code that stands in the row; one that no list knows has no name.
    void UpdateFrameCaption();
    // The focus goes to the first field of the code that stands in the row, which takes the text initial if
    // that is not empty. Nothing where the row is not in use.
    void FirstFieldFocus(std::string_view initial);
    // While set, FirstFieldFocus lays out but leaves the focus where it was put: the code field was left for a
    // place outside the chain.
    bool KeepFocus = false;
    // Fills the comment with the description of the code that stands in the row, "@  " in front.
    void CodeDescription();
    // No fields, and every text of the row empty.
    void ClearEntryFields();
    // The same, with a frame that names no code.
    void EmptyEntryRow();
    // Gives the code field the focus.
    void FocusCode() { focus_.SetFocus(entry_.txtGMcode); }

private:
    unsigned MachineBit() const;
    // Gives the fields that are laid out their labels and ranges.
    void NameFields();
    // What a field's text was entered for, before the code in force takes the field.
    void NoteLetter(std::size_t field, char letter);
    const char* UnitOf(std::size_t field);
    // The four-character form of the code that stands in the row.
    std::string CodeInRow() const;
    // The entry of the machine's list for the code that stands in the row; null where there is none.
    const std::string* ListEntry() const;

    EntryRow& entry_;
    const ProgramStore& store_;
    const CodeLists& lists_;
    const Texts& texts_;
    FocusService& focus_;
    // The four-character form of the code that the fields are laid out for.
    std::string laidOutCode_;
    // Of each field the letter that it has or had last; and that of its text where this was another one.
    struct Held {
        char Letter = 0;
        char From = 0;
        std::string Text;
    };
    std::array<Held, 5> held_;
};

}  // namespace kvt
