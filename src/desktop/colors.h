#pragma once

#include <QColor>
#include <QWidget>

#include "platform/controls.h"

namespace kvt {

// A text colour of the program on a ground. Where the two are too near for reading it becomes lighter or darker,
// so that what is chosen for white paper can be read on a dark desktop too.
QColor Readable(QColor color, QColor ground);

QColor ColorOf(Color color);
Color NumberOf(const QColor& color);

// Between two colours: the first where share is 0, the second where it is 1.
QColor Mixed(QColor color, QColor other, double share);

// Sets a widget's text colour; black is what the desktop writes with.
void SetTextColor(QWidget& widget, Color color);

}  // namespace kvt
