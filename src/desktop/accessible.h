#pragma once

#include <QString>
#include <QWidget>

namespace kvt {

// What screen readers are told of the widgets: roles, values and the table of a list. Names come from the views.
void InstallAccessibles();

// Tells a screen reader that is at work a text that has come up by itself in the window of a widget.
void Announce(QWidget& widget, const QString& text);

}  // namespace kvt
