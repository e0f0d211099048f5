#pragma once

#include <QString>
#include <QWidget>

namespace kvt {

// What screen readers are told of the widgets: roles, values and the table of a list. Names come from the views.
void InstallAccessibles();

// Announces to a running screen reader a text that has appeared by itself in the window of a widget.
void Announce(QWidget& widget, const QString& text);

}  // namespace kvt
