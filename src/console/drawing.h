#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/json_output.h"
#include "platform/picture_box.h"

namespace kvt {

// An array of drawing operations, without a line end.
void WriteOperations(JsonSink& out, std::span<const DrawOperation> operations);
// The name of an operation's kind; and a field of it as a text, nothing where it has none of that name.
std::string_view OperationName(const DrawOperation& operation);
std::optional<std::string> OperationField(const DrawOperation& operation, std::string_view field);

// The drawing of each file as one array of operations a line. The worst status of all files.
int DrawAsJson(const std::vector<std::string>& files);

// The drawing of a program as SVG; empty where there is no program.
std::string DrawingAsSvg(const std::string& file);

// The drawing of a file as a picture: .svg, .pdf, .png or .bmp. It never takes the place of the program itself.
int DrawPicture(const std::string& file, const std::string& out);

}  // namespace kvt
