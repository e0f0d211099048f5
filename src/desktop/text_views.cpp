#include "desktop/text_views.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTextBlock>
#include <QValidator>
#include <algorithm>

#include "basic/stack_guard.h"
#include "desktop/colors.h"
#include "desktop/text.h"
#include "platform/keys.h"

namespace kvt {

namespace {

constexpr int ctrlA = 1;
constexpr int longestLine = 10'000;
constexpr int longestNotes = 1'000'000;
constexpr int showInterval = 50;  // milliseconds

// Line ends as the widget has them.
QString WithPlainLineEnds(std::string_view text) {
    QString plain = Cleaned(ToQt(text), true).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return plain.replace(u'\r', u'\n');
}

KeyInput WithCtrl(int character) { return {'A' + character - 1, key::CtrlHeld, QString(QChar(character))}; }

}  // namespace

TextBoxView::TextBoxView(DesktopContext& desktop, TextBox& control, QWidget* widget)
    : View(desktop, control, widget), Box(control) {
    // What is dropped comes by way of the window.
    widget->setAcceptDrops(false);
}

void TextBoxView::Follow(PropertyId id) {
    const StackGuard guard(Following);
    switch (id) {
        case PropertyId::Text:
            if (const QString wanted = Wanted(); Shown() != wanted) {
                SetShown(wanted);
                SetShownSelection(Box.Selection);
            }
            break;
        case PropertyId::Selection:
            if (ShownSelection() != Box.Selection.Get()) SetShownSelection(Box.Selection);
            break;
        case PropertyId::ForeColor: SetTextColor(*Widget(), Box.ForeColor); break;
        default: View::Follow(id);
    }
}

bool TextBoxView::Act(const KeyInput& input) {
    if (input.Text.size() != 1 || (input.Held & key::CtrlHeld) == 0) return false;
    switch (input.Text.at(0).unicode()) {
        case key::CtrlC: Copy(); return true;
        case key::CtrlX: return Box.ShownOnly || (Cut(), true);
        case key::CtrlV:
            if (Box.ShownOnly) return true;
            Insert(Fit(incoming_.isNull() ? QGuiApplication::clipboard()->text() : incoming_));
            return true;
        case ctrlA: SelectAll(); return true;
        default: return false;
    }
}

bool TextBoxView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ContextMenu) {
        ShowMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton) {
        if (QGuiApplication::clipboard()->supportsSelection()) {
            Paste(QGuiApplication::clipboard()->text(QClipboard::Selection));
        }
        return true;
    }
    return View::eventFilter(watched, event);
}

void TextBoxView::PutIn(int number) {
    if (number >= ' ' && !Box.ShownOnly) Insert(CharacterOf(number));
}

void TextBoxView::Drop(const QString& text) {
    bool stays = false;
    Desktop.System.Run(Box, "GotFocus", [&] { stays = Desktop.Focus.Take(Box); });
    if (stays) Paste(text);
}

void TextBoxView::Paste(const QString& text) {
    if (text.isEmpty()) return;
    // One line takes it as if it were typed: the handlers see each character.
    if (!Box.MultiLine) return Type(Cleaned(text, false));
    incoming_ = text;
    Press(WithCtrl(key::CtrlV));
    incoming_ = {};
}

void TextBoxView::ShowMenu(QPoint at) {
    QMenu menu;
    const bool selected = ShownSelection().Length > 0;
    const auto add = [&](const char* caption, int character, bool enabled) {
        QAction* action = menu.addAction(QString::fromLatin1(caption));
        action->setEnabled(enabled && Box.ReallyEnabled());
        connect(action, &QAction::triggered, this, [this, character] { Press(WithCtrl(character)); });
    };
    add("Cu&t", key::CtrlX, selected);
    add("&Copy", key::CtrlC, selected);
    add("&Paste", key::CtrlV, !QGuiApplication::clipboard()->text().isEmpty());
    menu.addSeparator();
    add("Select &All", ctrlA, !Shown().isEmpty());
    menu.exec(at);
}

void TextBoxView::Edited() {
    if (Following) return;
    Desktop.System.Run(Box, "Change", [this] {
        // The selection goes first: it lies within the new text.
        Box.Selection = ShownSelection();
        Box.Text = FromQt(Shown().replace(u'\n', QStringLiteral("\r\n"))) + NotShown();
    });
}

void TextBoxView::SelectionMoved() {
    if (!Following) Box.Selection = ShownSelection();
}

namespace {

// Lets into a line what Cleaned lets pass, however it comes.
class LineFilter : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& text, int& caret) const override {
        const QString front = Cleaned(text.left(caret), false);
        text = front + Cleaned(text.mid(caret), false);
        caret = static_cast<int>(front.size());
        return Acceptable;
    }
};

}  // namespace

LineView::LineView(DesktopContext& desktop, TextBox& control, QWidget* parent)
    : TextBoxView(desktop, control, new QLineEdit(parent)), edit_(static_cast<QLineEdit*>(Widget())) {
    edit_->setMaxLength(longestLine);
    edit_->setValidator(new LineFilter(edit_));
    edit_->setReadOnly(control.ShownOnly);
    edit_->setInputMethodHints(Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    connect(edit_, &QLineEdit::textEdited, this, [this] { Edited(); });
    connect(edit_, &QLineEdit::selectionChanged, this, [this] { SelectionMoved(); });
    connect(edit_, &QLineEdit::cursorPositionChanged, this, [this] { SelectionMoved(); });
}

void LineView::Follow(PropertyId id) {
    TextBoxView::Follow(id);
    if (id != PropertyId::ForeColor || !Box.ShownOnly) return;
    QPalette palette = edit_->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Button));
    edit_->setPalette(palette);
}

TextSelection LineView::ShownSelection() const {
    if (!edit_->hasSelectedText()) return {edit_->cursorPosition(), 0};
    return {edit_->selectionStart(), edit_->selectionLength()};
}

void LineView::SetShownSelection(TextSelection selection) {
    const int size = static_cast<int>(edit_->text().size());
    const int start = std::clamp(selection.Start, 0, size);
    const int length = std::clamp(selection.Length, 0, size - start);
    edit_->deselect();
    if (length > 0) {
        edit_->setSelection(start, length);
    } else {
        edit_->setCursorPosition(start);
    }
}

QString LineView::Wanted() const {
    return Box.ShownOnly ? ShownToQt(Box.Text) : Cleaned(ToQt(Box.Text), false);
}

QString LineView::Fit(const QString& text) const { return Cleaned(text.left(longestLine), false); }

NotesView::NotesView(DesktopContext& desktop, TextBox& control, QWidget* parent)
    : TextBoxView(desktop, control, new QPlainTextEdit(parent)),
      edit_(static_cast<QPlainTextEdit*>(Widget())) {
    Watch(edit_->viewport());
    edit_->viewport()->setAcceptDrops(false);
    if (control.FixedPitch) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPixelSize(edit_->fontInfo().pixelSize());
        edit_->setFont(font);
    }
    showing_.setSingleShot(true);
    connect(&showing_, &QTimer::timeout, this, [this] { ShowMore(); });
    connect(edit_, &QPlainTextEdit::textChanged, this, [this] { Edited(); });
    connect(edit_, &QPlainTextEdit::selectionChanged, this, [this] { SelectionMoved(); });
    connect(edit_, &QPlainTextEdit::cursorPositionChanged, this, [this] { SelectionMoved(); });
}

void NotesView::Follow(PropertyId id) {
    if (id == PropertyId::Appended) {
        if (!showing_.isActive()) showing_.start(showInterval);
        return;
    }
    if (id == PropertyId::Text) shown_ = Box.Text.Get().size();
    TextBoxView::Follow(id);
}

// The first half of a line end waits for the second.
void NotesView::ShowMore() {
    const StackGuard guard(Following);
    const std::string_view text = Box.Text;
    std::size_t end = text.size();
    if (end > shown_ && text[end - 1] == '\r') --end;
    const std::string_view more = text.substr(shown_, end - shown_);
    // Each piece costs the layout of its whole line: one without end waits until it ends.
    const std::size_t line = static_cast<std::size_t>(edit_->document()->lastBlock().length()) + more.size();
    if (line > longestLine && more.find_first_of("\r\n") == std::string_view::npos) return;
    QTextCursor cursor(edit_->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(WithPlainLineEnds(more));
    edit_->setTextCursor(cursor);
    shown_ = end;
}

QString NotesView::Shown() const { return edit_->toPlainText(); }

void NotesView::SetShown(const QString& text) { edit_->setPlainText(text); }

// The widget counts a line end as one character, the control as two.
TextSelection NotesView::ShownSelection() const {
    const QTextCursor cursor = edit_->textCursor();
    const QString text = Shown();
    const auto position = [&](int at) { return at + static_cast<int>(text.left(at).count(u'\n')); };
    const int start = position(cursor.selectionStart());
    return {start, position(cursor.selectionEnd()) - start};
}

void NotesView::SetShownSelection(TextSelection selection) {
    const QString text = Shown().replace(u'\n', QStringLiteral("\r\n"));
    const int size = static_cast<int>(text.size());
    const auto position = [&](int at) {
        at = std::clamp(at, 0, size);
        return at - static_cast<int>(text.left(at).count(u'\r'));
    };
    QTextCursor cursor = edit_->textCursor();
    cursor.setPosition(position(selection.Start));
    cursor.setPosition(position(selection.Start + selection.Length), QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
}

QString NotesView::Wanted() const { return WithPlainLineEnds(Box.Text); }

QString NotesView::Fit(const QString& text) const {
    QString fit =
        Cleaned(text.left(longestNotes), true).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return fit.replace(u'\r', u'\n');
}

}  // namespace kvt
