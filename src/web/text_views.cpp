#include "web/text_views.h"

#include <algorithm>

#include "basic/line_end.h"
#include "platform/text_editing.h"
#include "web/web_clipboard.h"
#include "web/web_page.h"
#include "web/web_system.h"

namespace kvt {

namespace {

// Line ends as the page has them; a single CR is one too.
std::string WithPlainLineEnds(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!pair) plain += text[i] == '\r' ? '\n' : text[i];
    }
    return plain;
}

// The text but for the first half of a line end, which waits for the second.
std::string_view WholeLineEnds(std::string_view text) {
    if (text.ends_with('\r')) text.remove_suffix(1);
    return text;
}

// As the control has them.
std::string WithOwnLineEnds(std::string_view text) {
    std::string own;
    for (const char one : WithPlainLineEnds(text)) {
        if (one == '\n') {
            own += LineEnd;
        } else {
            own += one;
        }
    }
    return own;
}

}  // namespace

void WebTextBoxView::Describe(Message& message) const {
    message.Add("multiLine", box_.MultiLine)
        .Add("fixedPitch", box_.FixedPitch)
        .Add("readOnly", box_.ReadOnly)
        .Add("numeric", box_.Numeric)
        .Add("longest", box_.MultiLine ? 0 : static_cast<int>(LongestLine));
}

int WebTextBoxView::PlaceInPage(int place) const {
    const std::string_view text = box_.Text;
    const auto front = text.substr(0, static_cast<std::size_t>(std::max(0, place)));
    return box_.MultiLine ? static_cast<int>(WithPlainLineEnds(front).size())
                          : static_cast<int>(front.size());
}

// Where a place of the page lies in a text of the control.
int WebTextBoxView::PlaceIn(std::string_view text, int place) {
    std::size_t at = 0;
    for (int passed = 0; passed < place && at < text.size(); ++passed)
        at += text.substr(at, LineEnd.size()) == LineEnd ? LineEnd.size() : 1;
    return static_cast<int>(at);
}

TextSelection WebTextBoxView::SelectionOf(const PageEvent& event, std::string_view text) const {
    const int start = event.Number("start");
    const int from = PlaceIn(text, start);
    return {from, PlaceIn(text, start + event.Number("length")) - from, event.Flag("caretFirst")};
}

bool WebTextBoxView::Write(Message& message, PropertyId id) const {
    switch (id) {
        case PropertyId::Text:
            if (box_.MultiLine) {
                message.Code("Text", WithPlainLineEnds(WholeLineEnds(box_.Text.Get())));
            } else if (box_.ReadOnly) {
                message.Shown("Text", box_.Text);
            } else {
                message.Code("Text", box_.Text);
            }
            return true;
        case PropertyId::Selection: {
            const TextSelection selection = box_.Selection;
            const int start = PlaceInPage(selection.Start);
            message.Name("Selection").BeginArray().Put(start);
            message.Put(PlaceInPage(selection.Start + selection.Length) - start).Put(selection.CaretFirst);
            message.EndArray();
            return true;
        }
        case PropertyId::ForeColor: message.Add("ForeColor", box_.ForeColor.Get()); return true;
        default: return WebView::Write(message, id);
    }
}

void WebTextBoxView::TellMore(const Properties& changed) {
    const std::string_view text = WholeLineEnds(box_.Text.Get());
    const std::size_t end = text.size();
    if (Holds(changed, PropertyId::Text)) {
        told_ = end;
    } else if (Holds(changed, PropertyId::Appended)) {
        if (end <= told_) return;
        Message message("append");
        message.Add("id", Number()).Code("text", WithPlainLineEnds(text.substr(told_, end - told_)));
        Web.Page.Link().Send(message.End());
        told_ = end;
    }
}

void WebTextBoxView::Act(const PageEvent& event) {
    if (event.Is("edit") && !box_.ReadOnly) {
        TakeText(event);
    } else if (event.Is("caret")) {
        box_.Selection = SelectionOf(event, box_.Text);
    } else {
        WebView::Act(event);
    }
}

void WebTextBoxView::TakeText(const PageEvent& event) {
    std::string text = KnownCharactersOf(event.Raw("text"));
    if (text.size() > LargestText) return Mark(PropertyId::Text);
    if (box_.MultiLine) {
        text = WithOwnLineEnds(text);
    } else {
        std::erase_if(text, [](char one) { return static_cast<unsigned char>(one) < ' '; });
        text.resize(std::min(text.size(), LongestLine));
    }
    Web.System.Run(box_, "Change", [&] { TakeEdit(box_, text, SelectionOf(event, text)); });
    // The handlers may have made something else of it.
    Mark(PropertyId::Text);
    Mark(PropertyId::Selection);
}

bool WebRichTextView::Write(Message& message, PropertyId id) const {
    if (id != PropertyId::Text) return WebView::Write(message, id);
    message.Code("Folder", document_.Folder).Shown("Text", document_.Text);
    return true;
}

void WebRichTextView::TellMore(const Properties& changed) {
    if (Holds(changed, PropertyId::Section) && !document_.Section.empty())
        Web.Page.Link().Send(Message("section").Add("id", Number()).Code("name", document_.Section).End());
    if (Holds(changed, PropertyId::Sought) && !document_.Sought.empty())
        Web.Page.Link().Send(Message("find").Add("id", Number()).Code("text", document_.Sought).End());
}

// Where the page has looked, in the text as it shows it.
void WebRichTextView::Act(const PageEvent& event) {
    if (event.Is("found")) {
        document_.WasFound = event.Flag("found");
    } else {
        WebView::Act(event);
    }
}

}  // namespace kvt
