#include "desktop/text_views.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTextBlock>
#include <QValidator>
#include <algorithm>

#include "basic/stack_guard.h"
#include "desktop/colors.h"
#include "desktop/form_font.h"
#include "desktop/text.h"
#include "platform/keys.h"

namespace kvt {

namespace {

constexpr int longestNotes = 1'000'000;
constexpr int showInterval = 50;  // milliseconds

// As the widget has it.
QString Plain(std::string_view text) { return WithToolkitLineEnds(Cleaned(ToQt(text), true)); }

constexpr int longestLine = static_cast<int>(LongestLine);

KeyPress WithCtrl(char letter) { return PressOf(KeyStroke{letter, key::CtrlHeld}); }

// The moves that go by lines as the widget has broken them.
QTextCursor::MoveOperation OperationOf(TextAction action) {
    switch (action) {
        case TextAction::Home: return QTextCursor::StartOfLine;
        case TextAction::End: return QTextCursor::EndOfLine;
        case TextAction::Up:
        case TextAction::PageUp: return QTextCursor::Up;
        case TextAction::Down:
        case TextAction::PageDown: return QTextCursor::Down;
        default: return QTextCursor::NoMove;
    }
}

// What of the text a deletion without a selection takes.
TextAction MoveOf(TextAction deletion) {
    switch (deletion) {
        case TextAction::DeleteBack: return TextAction::Left;
        case TextAction::DeleteWordBack: return TextAction::WordLeft;
        case TextAction::DeleteWord: return TextAction::WordRight;
        default: return TextAction::Right;
    }
}

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

bool TextBoxView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && watched == Widget()) Follow(PropertyId::Selection);
    if (event->type() == QEvent::ContextMenu) {
        ShowMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton) {
        if (QGuiApplication::clipboard()->supportsSelection()) {
            const QString text = QGuiApplication::clipboard()->text(QClipboard::Selection);
            if (!text.isEmpty()) Paste(text);
        }
        return true;
    }
    return View::eventFilter(watched, event);
}

void TextBoxView::Drop(const QString& text) {
    bool stays = false;
    Desktop.System.Run(Box, "GotFocus", [&] { stays = Desktop.Focus.Take(Box); });
    if (stays && !text.isEmpty()) Paste(text);
}

void TextBoxView::ShowMenu(QPoint at) {
    QMenu menu;
    const bool selected = ShownSelection().Length > 0;
    const auto add = [&](const char* caption, char letter, bool enabled) {
        QAction* action = menu.addAction(QCoreApplication::translate("QWidgetTextControl", caption));
        action->setEnabled(enabled && Box.EffectivelyEnabled());
        connect(action, &QAction::triggered, this, [this, letter] { Press(WithCtrl(letter)); });
    };
    add("Cu&t", 'X', selected);
    add("&Copy", 'C', selected);
    add("&Paste", 'V', !QGuiApplication::clipboard()->text().isEmpty());
    menu.addSeparator();
    add("Select All", 'A', !Shown().isEmpty());
    menu.exec(at);
}

void TextBoxView::Edited() {
    if (Following) return;
    Desktop.System.Run(Box, "Change", [this] {
        TakeEdit(Box, FromQt(WithProgramLineEnds(Shown())) + NotShown(), ShownSelection());
    });
}

void TextBoxView::SelectionMoved() {
    if (!Following && Widget()->hasFocus()) Box.Selection = ShownSelection();
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

void UseFixedPitch(QWidget& field) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(field.fontInfo().pixelSize());
    field.setFont(font);
}

}  // namespace

LineView::LineView(DesktopContext& desktop, TextBox& control, QWidget* parent)
    : TextBoxView(desktop, control, new QLineEdit(parent)), edit_(static_cast<QLineEdit*>(Widget())) {
    edit_->setMaxLength(longestLine);
    edit_->setValidator(new LineFilter(edit_));
    edit_->setReadOnly(control.ReadOnly);
    if (control.FixedPitch) UseFixedPitch(*edit_);
    const Qt::InputMethodHints hints = Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase;
    edit_->setInputMethodHints(control.Numeric ? hints | Qt::ImhPreferNumbers : hints);
    connect(edit_, &QLineEdit::textEdited, this, [this] { Edited(); });
    connect(edit_, &QLineEdit::selectionChanged, this, [this] { SelectionMoved(); });
    connect(edit_, &QLineEdit::cursorPositionChanged, this, [this] { SelectionMoved(); });
}

void LineView::Follow(PropertyId id) {
    TextBoxView::Follow(id);
    if (id != PropertyId::ForeColor || !Box.ReadOnly) return;
    QPalette palette = edit_->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Button));
    edit_->setPalette(palette);
}

TextSelection LineView::ShownSelection() const {
    const int caret = edit_->cursorPosition();
    if (!edit_->hasSelectedText()) return {caret, 0};
    const int start = edit_->selectionStart();
    return {start, edit_->selectionLength(), caret == start};
}

void LineView::SetShownSelection(TextSelection selection) {
    const int size = static_cast<int>(edit_->text().size());
    const int start = std::clamp(selection.Start, 0, size);
    const int length = std::clamp(selection.Length, 0, size - start);
    edit_->deselect();
    if (length > 0 && selection.CaretFirst) {
        edit_->setSelection(start + length, -length);
    } else if (length > 0) {
        edit_->setSelection(start, length);
    } else {
        edit_->setCursorPosition(start);
    }
}

QString LineView::Wanted() const {
    return Box.ReadOnly ? ShownToQt(Box.Text) : Cleaned(ToQt(Box.Text), false);
}

// As if it were typed: the handlers see each character.
void LineView::Paste(const QString& text) { Type(Cleaned(text, false)); }

NotesView::NotesView(DesktopContext& desktop, TextBox& control, QWidget* parent)
    : TextBoxView(desktop, control, new QPlainTextEdit(parent)),
      edit_(static_cast<QPlainTextEdit*>(Widget())) {
    Watch(edit_->viewport());
    edit_->viewport()->setAcceptDrops(false);
    // The box keeps the edits.
    edit_->setUndoRedoEnabled(false);
    if (control.FixedPitch) UseFixedPitch(*edit_);
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
    cursor.insertText(Plain(more));
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
    return {start, position(cursor.selectionEnd()) - start, cursor.position() < cursor.anchor()};
}

void NotesView::SetShownSelection(TextSelection selection) {
    const QString text = WithProgramLineEnds(Shown());
    const int size = static_cast<int>(text.size());
    const auto position = [&](int at) {
        at = std::clamp(at, 0, size);
        return at - static_cast<int>(text.left(at).count(u'\r'));
    };
    QTextCursor cursor = edit_->textCursor();
    const int start = position(selection.Start);
    const int end = position(selection.Start + selection.Length);
    cursor.setPosition(selection.CaretFirst ? end : start);
    cursor.setPosition(selection.CaretFirst ? start : end, QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
}

QString NotesView::Wanted() const { return Plain(Box.Text); }

void NotesView::Paste(const QString& text) {
    incoming_ = text;
    Press(WithCtrl('V'));
    incoming_ = {};
}

bool NotesView::EditInWidget(const TextEdit& edit) {
    switch (edit.Action) {
        case TextAction::Insert:
            edit_->insertPlainText(edit.Character == key::Enter ? QStringLiteral("\n")
                                                                : QString(CharacterOf(edit.Character)));
            break;
        case TextAction::DeleteBack:
        case TextAction::DeleteWordBack:
        case TextAction::Delete:
        case TextAction::DeleteWord: Remove(edit.Action); break;
        case TextAction::SelectAll: edit_->selectAll(); break;
        case TextAction::Copy: edit_->copy(); break;
        case TextAction::Cut: edit_->cut(); break;
        case TextAction::Paste: {
            const QString text = incoming_.isNull() ? QGuiApplication::clipboard()->text() : incoming_;
            edit_->insertPlainText(Plain(FromQt(Cleaned(text.left(longestNotes), true))));
            break;
        }
        default:
            if (OperationOf(edit.Action) == QTextCursor::NoMove) return false;
            Move(edit.Action, edit.Extends);
    }
    edit_->ensureCursorVisible();
    return true;
}

void NotesView::Move(TextAction action, bool extends) {
    QTextCursor cursor = edit_->textCursor();
    const bool page = action == TextAction::PageUp || action == TextAction::PageDown;
    const int lines = edit_->viewport()->height() / std::max(1, edit_->fontMetrics().lineSpacing()) - 1;
    cursor.movePosition(OperationOf(action), extends ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor,
                        page ? std::max(1, lines) : 1);
    edit_->setTextCursor(cursor);
}

void NotesView::Remove(TextAction action) {
    if (Box.Selection.Get().Length == 0) EditText(Box, {MoveOf(action), true}, nullptr);
    QTextCursor cursor = edit_->textCursor();
    cursor.removeSelectedText();
    edit_->setTextCursor(cursor);
}

}  // namespace kvt
