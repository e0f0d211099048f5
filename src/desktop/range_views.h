#pragma once

#include <QAbstractSlider>
#include <QComboBox>
#include <QProgressBar>

#include "desktop/view.h"

// The views of controls that choose from a range or a short list.
namespace kvt {

// The selected entry, and the others when it is opened.
class ComboBoxView : public View {
public:
    ComboBoxView(DesktopContext& desktop, ComboBox& control, QWidget* parent);

    void OpenList() override { face_->showPopup(); }

protected:
    void Follow(PropertyId id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ComboBox& box_;
    QComboBox* face_;
    bool following_ = false;
};

class ScrollBarView : public View {
public:
    ScrollBarView(DesktopContext& desktop, ScrollBar& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;

private:
    ScrollBar& bar_;
    QAbstractSlider* face_;
    bool following_ = false;
};

class ProgressBarView : public View {
public:
    ProgressBarView(DesktopContext& desktop, ProgressBar& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;

private:
    ProgressBar& bar_;
    QProgressBar* face_;
};

// Two arrow buttons, which repeat while they are held.
class UpDownView : public View {
public:
    UpDownView(DesktopContext& desktop, UpDown& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place();

    UpDown& range_;
    QWidget* up_;
    QWidget* down_;
};

}  // namespace kvt
