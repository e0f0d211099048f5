#include "shell/info_page.h"

namespace kvt {

namespace {

void Set(TextBox& box, std::string_view path) {
    if (box.Text.Get() != path) box.Text = path;
}

}  // namespace

InfoPage::InfoPage(Form& form)
    : lblCurrentFilePath(form, "lblCurrentFilePath", "Current File Path"),
      lblApplicationPath(form, "lblApplicationPath", "Application Path"),
      lblSettingsPath(form, "lblSettingsPath", "Settings Path"),
      txtCurrentFilePath(form, "txtCurrentFilePath"),
      txtApplicationPath(form, "txtApplicationPath"),
      txtSettingsPath(form, "txtSettingsPath") {
    for (TextBox* box : {&txtCurrentFilePath, &txtApplicationPath, &txtSettingsPath}) box->ReadOnly = true;
}

void InfoPage::Show(std::string_view currentFile, std::string_view application, std::string_view settings) {
    Set(txtCurrentFilePath, currentFile);
    Set(txtApplicationPath, application);
    Set(txtSettingsPath, settings);
}

}  // namespace kvt
