#pragma once

#include <span>
#include <string>

#include "platform/picture_box.h"

namespace kvt {

// The pieces that SVG documents are made of; all of them UTF-8.

// A number with one decimal place at most, a colour, ` name="value"`, and a text as it stands between tags.
std::string SvgNumber(double value);
std::string SvgColor(Color color);
std::string SvgAttribute(const char* name, const std::string& value);
std::string SvgText(const std::string& utf8);

// What hatched areas refer to; a document with operations has it once.
std::string SvgHatch();
// Lines, boxes and circles as elements of a group, in twips.
std::string SvgStrokesOf(std::span<const DrawOperation> operations);

}  // namespace kvt
