#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

#include "desktop/view.h"

namespace kvt {

// A text box. What the user writes goes into the control at once, and the selection with it; what enters by
// other ways than single characters enters as Ctrl-V does, if the handlers let that pass.
class TextBoxView : public View {
public:
    // A text that was dropped on the box.
    void Drop(const QString& text);

protected:
    TextBoxView(DesktopContext& desktop, TextBox& control, QWidget* widget);

    void Follow(PropertyId id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    // The widget, as text of the toolkit and of the program.
    virtual QString Shown() const = 0;
    virtual void SetShown(const QString& text) = 0;
    virtual TextSelection ShownSelection() const = 0;
    virtual void SetShownSelection(TextSelection selection) = 0;
    // The control's text as the widget has it.
    virtual QString Wanted() const = 0;
    // A text that comes at once from elsewhere than the clipboard.
    virtual void Paste(const QString& text) = 0;

    // What has been added to the control's text and is not in the widget yet.
    virtual std::string NotShown() const { return {}; }
    // The user has changed the text, or the selection alone. A widget that loses the keys shows no selection any more;
    // the control keeps its own, which comes back with the keys.
    void Edited();
    void SelectionMoved();

    TextBox& Box;
    bool Following = false;

private:
    void ShowMenu(QPoint at);
};

// One line.
class LineView : public TextBoxView {
public:
    LineView(DesktopContext& desktop, TextBox& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    QString Shown() const override { return edit_->text(); }
    void SetShown(const QString& text) override { edit_->setText(text); }
    TextSelection ShownSelection() const override;
    void SetShownSelection(TextSelection selection) override;
    QString Wanted() const override;
    void Paste(const QString& text) override;

private:
    QLineEdit* edit_;
};

// Several lines, which end with CR LF in the control.
class NotesView : public TextBoxView {
public:
    NotesView(DesktopContext& desktop, TextBox& control, QWidget* parent);

    // Lines as they are broken and a long text are the widget's business.
    bool EditInWidget(const TextEdit& edit) override;

protected:
    void Follow(PropertyId id) override;
    std::string NotShown() const override { return Box.Text.Get().substr(shown_); }
    QString Shown() const override;
    void SetShown(const QString& text) override;
    TextSelection ShownSelection() const override;
    void SetShownSelection(TextSelection selection) override;
    QString Wanted() const override;
    void Paste(const QString& text) override;

private:
    void ShowMore();
    void Move(TextAction action, bool extends);
    void Remove(TextAction action);

    QPlainTextEdit* edit_;
    // How much of the control's text is in the widget: a text that grows is shown a few times a second.
    std::size_t shown_ = 0;
    // What pasting puts in: the clipboard where it is not set.
    QString incoming_;
    QTimer showing_;
};

}  // namespace kvt
