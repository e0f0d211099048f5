#pragma once

#include "editor/entry_row.h"
#include "files/settings_file.h"
#include "interpreter/view_columns.h"
#include "program/program_store.h"
#include "shell/beside.h"
#include "shell/main_controls.h"
#include "shell/printer_page.h"
#include "transfer/port_control.h"

namespace kvt {

// Bind keys of the main window's settings file to what is in charge of their values: the state of the program, the
// entry row, the boxes of the view, the port, the printer, and the window.
void BindProgram(SettingsFile& keys, ProgramStore& store, MainControls& main);
void BindEntry(SettingsFile& keys, EntryRow& entry);
void BindView(SettingsFile& keys, ViewColumns& view);
void BindPort(SettingsFile& keys, PortControl& port);
void BindPrinter(SettingsFile& keys, PrinterPage& page);
// The window's place. A height or width that is not above 0 gives the smallest or the usual one, a left or top edge
// the middle of the screen. What is kept is the window's own place.
void BindWindow(SettingsFile& keys, Form& window, Beside& beside, ScreenService& screen);
// Puts a window into the middle of the screen.
void Centre(Form& window, ScreenService& screen);

}  // namespace kvt
