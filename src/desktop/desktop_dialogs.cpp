#include "desktop/desktop_dialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "desktop/colors.h"
#include "desktop/text.h"

namespace kvt {

namespace {

// A question of Yes and No is answered by these alone: neither Escape nor closing the box stands for one.
class Box : public QMessageBox {
public:
    using QMessageBox::QMessageBox;
    bool MustAnswer = false;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!MustAnswer || event->key() != Qt::Key_Escape) QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override {
        if (!MustAnswer) return QMessageBox::closeEvent(event);
        event->ignore();
    }
};

QMessageBox::Icon IconOf(Icon icon) {
    switch (icon) {
        case Icon::None: return QMessageBox::NoIcon;
        case Icon::Information: return QMessageBox::Information;
        case Icon::Exclamation: return QMessageBox::Warning;
        case Icon::Question: return QMessageBox::Question;
        case Icon::Critical: return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

// "name|*.a;*.b|..." as the toolkit has it; "*.*" is any file.
QStringList FiltersOf(std::string_view filter) {
    QStringList filters;
    const std::vector<std::string_view> parts = Split(filter, "|");
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        QString name = ToQt(parts[i]);
        name.truncate(name.indexOf(u'(') < 0 ? name.size() : name.indexOf(u'('));
        QStringList patterns = ToQt(parts[i + 1]).split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        if (!patterns.isEmpty()) filters += name.trimmed() + " (" + patterns.join(u' ') + ")";
    }
    return filters;
}

}  // namespace

DialogParent::DialogParent(const DesktopContext& desktop) : before_(QApplication::activeWindow()) {
    const auto take = [this](QWidget* window) {
        if (!window_ && window && window->isVisible() && window->windowType() == Qt::Window) window_ = window;
    };
    for (const Form* form : {desktop.System.Running(), desktop.Front}) {
        const View* const view = form ? View::Of(*form) : nullptr;
        if (view) take(view->Widget());
    }
    take(before_);
    for (QWidget* window : QApplication::topLevelWidgets()) take(window);
    // The dialogs of a minimised window are not to be seen either.
    if (window_) window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    if (!before_) before_ = window_;
}

DialogParent::~DialogParent() {
    if (before_) before_->activateWindow();
}

Answer DesktopDialogs::ShowMessage(const MessageBox& box) {
    const bool asks = box.Choice != Buttons::Ok;
    const Answer refusal = box.Choice == Buttons::YesNoCancel ? Answer::Cancel
                           : asks                             ? Answer::No
                                                              : Answer::Ok;
    if (desktop_.System.Ended()) return refusal;
    ++desktop_.DialogsShown;
    const DialogParent parent(desktop_);
    Box window(parent);
    window.setWindowTitle(box.Title.empty() ? QCoreApplication::applicationName() : ToQt(box.Title));
    window.setTextFormat(Qt::PlainText);
    window.setText(ShownToQt(box.Text));
    window.setInformativeText(ShownToQt(box.Details));
    window.setIcon(IconOf(box.Picture));
    QMessageBox::StandardButtons buttons = asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok;
    buttons.setFlag(QMessageBox::Cancel, box.Choice == Buttons::YesNoCancel);
    window.setStandardButtons(buttons);
    window.setDefaultButton(asks ? QMessageBox::Yes : QMessageBox::Ok);
    window.MustAnswer = box.Choice == Buttons::YesNo;
    switch (window.exec()) {
        case QMessageBox::Yes: return Answer::Yes;
        case QMessageBox::No: return Answer::No;
        case QMessageBox::Cancel: return Answer::Cancel;
        default: return refusal;
    }
}

bool DesktopDialogs::Choose(FileDialog& dialog, bool saves) {
    bool chosen = false;
    if (!desktop_.System.Ended()) {
        ++desktop_.DialogsShown;
        const DialogParent parent(desktop_);
        QFileDialog window(parent);
        // Whether a file is to be written over is asked by the program.
        window.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
        window.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
        window.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
        const QStringList filters = FiltersOf(dialog.Filter);
        if (!filters.isEmpty()) window.setNameFilters(filters);
        if (const QFileInfo before(PathToQt(dialog.FileName)); !dialog.FileName.empty()) {
            if (before.dir().exists()) window.setDirectory(before.dir());
            if (saves || before.exists()) window.selectFile(before.fileName());
        }
        chosen = window.exec() == QDialog::Accepted && !window.selectedFiles().isEmpty();
        if (chosen) dialog.FileName = PathText(window.selectedFiles().constFirst());
    }
    if (!chosen && dialog.CancelError) throw RunTimeError(fault::Cancelled);
    return chosen;
}

bool DesktopDialogs::ShowColor(Color& color) {
    if (desktop_.System.Ended()) return false;
    ++desktop_.DialogsShown;
    const DialogParent parent(desktop_);
    QColorDialog window(ColorOf(color), parent);
    window.setOptions(QColorDialog::DontUseNativeDialog);
    if (window.exec() != QDialog::Accepted) return false;
    color = NumberOf(window.selectedColor());
    return true;
}

}  // namespace kvt
