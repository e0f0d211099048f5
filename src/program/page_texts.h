#pragma once

#include <span>

#include "program/texts.h"

namespace kvt {

// The names by which the browser page asks for its own texts, by the places of these in Texts::PageTexts.
std::span<const char* const> PageTextNames();
// Their English.
std::span<const TextsOf<int>::Default> PageTextDefaults();

}  // namespace kvt
