#include "platform/controls.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "basic/run_time_error.h"
#include "basic/stack_guard.h"
#include "basic/text.h"

namespace kvt {

void detail::TellChanged(Control& owner, PropertyId id) { owner.Changed(id); }

Control::Control(Form& form, ControlKind kind, std::string_view name, int index)
    : form_(form), kind_(kind), index_(index), name_(name) {
    if (kind != ControlKind::Form) {
        Container = &form;
        form.controls_.push_back(this);
    }
}

Control::~Control() {
    if (kind_ == ControlKind::Form) return;
    // The youngest goes first as a rule.
    auto& controls = form_.controls_;
    controls.erase(std::prev(std::find(controls.rbegin(), controls.rend(), this).base()));
}

void Control::Changed(PropertyId id) {
    if (View) View->PropertyChanged(*this, id);
}

bool Control::OnFrontPage() const {
    const auto* strip = dynamic_cast<const TabStrip*>(Container);
    return !strip || Page < 0 || Page == strip->Value;
}

bool Control::EffectivelyVisible() const {
    return Visible && OnFrontPage() && (!Container || Container->EffectivelyVisible());
}

bool Control::EffectivelyEnabled() const {
    return Enabled && (!Container || Container->EffectivelyEnabled());
}

Form::Form(std::string_view name) : Control(*this, ControlKind::Form, name) {}

Control* Form::FindControl(std::string_view name, int index) const {
    for (Control* control : controls_) {
        if (control->Index() == index && EqualIgnoringCase(control->Name(), name)) return control;
    }
    return nullptr;
}

WindowPlace Form::RestoredPlace() const {
    return State == WindowState::Normal ? WindowPlace{Height, Left, Top, Width} : restored_;
}

void Form::FillArea(const WindowPlace& area) {
    State = WindowState::Normal;
    if (!View) return SetRestoredPlace(area);
    areaToFill_ = area;
    Control::Changed(PropertyId::Area);
}

void Form::SetRestoredPlace(const WindowPlace& place) {
    areaToFill_.reset();
    if (State != WindowState::Normal) {
        restored_ = place;
        return Control::Changed(PropertyId::RestoredPlace);
    }
    Height = place.Height;
    Left = place.Left;
    Top = place.Top;
    Width = place.Width;
}

void Form::ShowBehind() {
    const StackGuard guard(comesBehind_);
    Visible = true;
}

// A restored window has its place again before its view hears of it.
void Form::NoteState() {
    const WindowState now = State;
    const WindowState before = std::exchange(lastState_, now);
    if (before == WindowState::Normal) restored_ = {Height, Left, Top, Width};
    if (now != WindowState::Minimised) fillsScreen_ = now == WindowState::Maximised;
    if (now != WindowState::Normal) return;
    ApplySize(restored_.Width, restored_.Height);
    Left = restored_.Left;
    Top = restored_.Top;
}

// The view has taken on the new size before the form lays out its controls.
void Form::Changed(PropertyId id) {
    if (id == PropertyId::WindowState) NoteState();
    Control::Changed(id);
    if ((id == PropertyId::Width || id == PropertyId::Height) && !applyingSize_ && OnResize) OnResize();
}

bool Form::ApplySize(int width, int height) {
    if (width == Width && height == Height) return false;
    applyingSize_ = true;
    Width = width;
    Height = height;
    applyingSize_ = false;
    return true;
}

void Form::PlaceOver(const Form& other) {
    if (Left != 0 || Top != 0) return;
    Left = other.Left + std::max(0, (other.Width - Width) / 2);
    Top = other.Top + std::max(0, (other.Height - Height) / 3);
}

void RangeControl::Changed(PropertyId id) {
    if (id == PropertyId::Bounds) SetValue(Value);
    Control::Changed(id);
    if (id == PropertyId::Value && OnChange) OnChange();
}

void RichText::Find(std::string_view sought) {
    Sought = sought;
    WasFound = UpperCase(Text.Get()).find(UpperCase(Sought)) != std::string::npos;
    Changed(PropertyId::Sought);
}

void TextBox::Append(std::string_view more) {
    if (more.empty()) return;
    {
        const StackGuard guard(appending_);
        Text.Extend(more);
        Selection = TextSelection{static_cast<int>(Text.Get().size()), 0};
    }
    Changed(PropertyId::Appended);
}

// The selection goes first: a handler that runs at the change finds it in the new text.
void TextBox::SetByHand(const std::string& text, TextSelection selection) {
    Selection = selection;
    {
        const StackGuard guard(byHand_);
        Text = text;
    }
    const std::string& now = Text.Get();
    if (now == text) return;
    Edits = {};
    Selection = TextSelection{std::min(selection.Start, static_cast<int>(now.size())), 0};
}

void TextBox::Changed(PropertyId id) {
    if (appending_) return;
    if ((id == PropertyId::Text && !byHand_) || id == PropertyId::Appended) Edits = {};
    if (id == PropertyId::Text) {
        const int length = static_cast<int>(Text.Get().size());
        const TextSelection selection = Selection.Get();
        if (selection.Start + selection.Length > length) Selection = TextSelection{};
    }
    Control::Changed(id);
    if ((id == PropertyId::Text || id == PropertyId::Appended) && OnChange) OnChange();
}

const std::string& ListBox::Entry(int index) const {
    if (index < 0 || index >= Count()) throw RunTimeError(fault::SubscriptOutOfRange);
    return entries_[static_cast<std::size_t>(index)];
}

void ListBox::SetEntry(int index, std::string_view text) {
    if (index < 0 || index >= Count()) throw RunTimeError(fault::SubscriptOutOfRange);
    entries_[static_cast<std::size_t>(index)] = text;
    Changed(PropertyId::Entries);
}

void ListBox::AddEntry(std::string_view text) {
    entries_.emplace_back(text);
    Changed(PropertyId::Entries);
}

void ListBox::SetEntries(std::vector<std::string> entries) {
    entries_ = std::move(entries);
    ListIndex = -1;
    Changed(PropertyId::Entries);
}

void ListBox::Clear() {
    entries_.clear();
    ListIndex = -1;
    Changed(PropertyId::Entries);
}

std::string_view FileDialog::FileTitle() const { return ExtractFileName(FileName); }

}  // namespace kvt
