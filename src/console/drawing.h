#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/json_output.h"
#include "draw/svg.h"

namespace kvt {

// An array of drawing operations, without a line end.
void WriteOperations(JsonSink& out, std::span<const DrawOperation> operations);
// The name of an operation's kind; and a field of it as a text, nothing where it has none of that name.
std::string_view OperationName(const DrawOperation& operation);
std::optional<std::string> OperationField(const DrawOperation& operation, std::string_view field);

// The drawing of each file as one array of operations a line. The worst status of all files.
int DrawAsJson(const std::vector<std::string>& files);

// Writes a picture of an area of the field to a file; false where it cannot.
using PictureWriter = std::function<bool(std::span<const DrawOperation> operations, const FieldArea& area,
                                         const std::string& path)>;

// The drawing of a file as a picture: .svg, and what a writer for the other kinds takes. Without one these are
// left to kvt, which stands beside this program.
int DrawPicture(const std::string& file, const std::string& out, const PictureWriter& writer);

}  // namespace kvt
