#include "platform/menu_array.h"

namespace kvt {

void MenuArray::Show(const std::vector<std::string>& captions) {
    const auto count = static_cast<int>(captions.size());
    for (int i = 0; i < count; ++i) {
        At(i).Caption = captions[static_cast<std::size_t>(i)];
        At(i).Visible = true;
    }
    for (auto i = captions.size(); i < entries_.size(); ++i) entries_[i]->Visible = false;
}

Menu& MenuArray::At(int index) {
    Form& form = above_.OwningForm();
    while (static_cast<int>(entries_.size()) <= index) {
        const auto next = static_cast<int>(entries_.size());
        entries_.push_back(std::make_unique<Menu>(form, name_, "", next));
        entries_.back()->Container = &above_;
        entries_.back()->Visible = false;
        entries_.back()->OnClick = [this, next] { onClick_(next); };
        form.TellControlsAdded();
    }
    return *entries_[static_cast<std::size_t>(index)];
}

}  // namespace kvt
