#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

#include "platform/controls.h"

namespace kvt {

// The contrast of two colours, from 1 for the same one to 21 for black and white. A text needs 4.5 to be read.
inline constexpr double LeastContrast = 4.5;
double Contrast(QColor a, QColor b);

// A text colour of the program on a ground. Where the two are too near for reading it becomes lighter or darker,
// so that what is chosen for white paper can be read on a dark desktop too.
QColor Readable(QColor color, QColor ground);

// A desktop's palette in which every text can be read on its ground: what is selected, greyed or a link too.
QPalette ReadablePalette(const QPalette& desktop);
// Whether a palette is dark, or one of high contrast: lines that are faint on light paper stand out there.
bool IsDarkOrStrong(const QPalette& palette);

// What the list of a program is painted with: the lines between its columns, the ground of the selected row, which is a
// tint that lets the colours of its texts be told apart, the line around it, and a finding on a ground.
QColor GridColor(const QPalette& palette);
QColor SelectedGround(const QPalette& palette, bool hasFocus);
QColor SelectedEdge(const QPalette& palette);
// The line around frames and fields.
QColor EdgeColor(const QPalette& palette);
QColor FindingColor(QColor ground);

QColor ColorOf(Color color);
Color NumberOf(const QColor& color);

// Between two colours: the first where share is 0, the second where it is 1.
QColor Mixed(QColor color, QColor other, double share);

// Sets a widget's text colour; black is what the desktop writes with.
void SetTextColor(QWidget& widget, Color color);
// Sets those of all widgets anew: the desktop's palette has changed, and with it their grounds.
void RefreshTextColors();

}  // namespace kvt
