#include "shell/info_page.h"

#include <utility>

#include "shell/placing.h"

namespace kvt {

namespace {

constexpr int leftEdge = 240, firstTop = 600, lineHeight = 255, fieldHeight = 345, fieldWidth = 6600;
constexpr int step = 900;  // from one path to the next

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
      txtSettingsPath(form, "txtSettingsPath") {}

void InfoPage::PutOn(TabStrip& settings, int page) {
    int top = firstTop;
    for (const auto& [label, box] :
         std::initializer_list<std::pair<Label*, TextBox*>>{{&lblCurrentFilePath, &txtCurrentFilePath},
                                                            {&lblApplicationPath, &txtApplicationPath},
                                                            {&lblSettingsPath, &txtSettingsPath}}) {
        for (Control* control : std::initializer_list<Control*>{label, box}) {
            control->Container = &settings;
            control->Page = page;
        }
        Place({{*label, leftEdge, top, fieldWidth, lineHeight},
               {*box, leftEdge, top + lineHeight + 45, fieldWidth, fieldHeight}});
        box->ReadOnly = true;
        top += step;
    }
}

void InfoPage::Show(std::string_view currentFile, std::string_view application, std::string_view settings) {
    Set(txtCurrentFilePath, currentFile);
    Set(txtApplicationPath, application);
    Set(txtSettingsPath, settings);
}

}  // namespace kvt
