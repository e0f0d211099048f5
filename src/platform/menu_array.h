#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace kvt {

// Entries of a menu that come and go: a control array, of which as many are seen as there are captions. Each is made
// when it is needed for the first time.
class MenuArray {
public:
    MenuArray(Menu& above, std::string_view name, std::function<void(int index)> onClick)
        : above_(above), name_(name), onClick_(std::move(onClick)) {}

    void Show(const std::vector<std::string>& captions);
    // An entry, made if need be.
    Menu& At(int index);

private:
    Menu& above_;
    std::string name_;
    std::function<void(int)> onClick_;
    std::vector<std::unique_ptr<Menu>> entries_;
};

}  // namespace kvt
