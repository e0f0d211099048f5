#include "web/list_views.h"

#include "web/web_system.h"

namespace kvt {

void WebListBoxView::Describe(Message& message) const {
    message.Add("fixedPitch", list_.FixedPitch).Add("inFront", list_.InFront);
}

bool WebListBoxView::Write(Message& message, PropertyId id) const {
    switch (id) {
        case PropertyId::Entries:
            message.Name("Entries").BeginArray();
            for (const std::string& entry : list_.Entries()) message.PutCode(entry);
            message.EndArray().Add("ListIndex", list_.ListIndex.Get());
            return true;
        case PropertyId::ListIndex: message.Add("ListIndex", list_.ListIndex.Get()); return true;
        case PropertyId::ForeColor: message.Add("ForeColor", list_.ForeColor.Get()); return true;
        default: return WebView::Write(message, id);
    }
}

// The entry of a combo box that is chosen again is none that is new.
void WebListBoxView::Choose(int index) {
    if (index < 0 || index >= list_.Count() || !Press() || !Usable()) return Mark(PropertyId::ListIndex);
    if (list_.Kind() == ControlKind::ComboBox && index == list_.ListIndex) return;
    Web.System.Run(list_, "Click", [&] {
        list_.ListIndex = index;
        list_.Click();
    });
    Mark(PropertyId::ListIndex);
}

void WebListBoxView::Act(const PageEvent& event) {
    if (event.Is("entry")) {
        Choose(event.Number("index"));
    } else if (event.Is("sight")) {
        list_.SetEntriesInSight(event.Number("rows"));
    }
}

}  // namespace kvt
