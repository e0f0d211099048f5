#include "platform/supplied_record.h"

#include <cstdint>
#include <functional>
#include <utility>

#include "basic/line_end.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

// FNV-1a: it tells apart what nobody has made alike on purpose.
std::string DigestOf(std::string_view content) {
    constexpr std::uint64_t basis = 0xCBF29CE484222325, prime = 0x100000001B3;
    std::uint64_t digest = basis;
    for (const char c : content) digest = (digest ^ static_cast<unsigned char>(c)) * prime;
    std::string text;
    for (int shift = 60; shift >= 0; shift -= 4) text += "0123456789abcdef"[(digest >> shift) & 15];
    return text;
}

}  // namespace

SuppliedRecord::SuppliedRecord(FileService& files, std::string path) : files_(files), path_(std::move(path)) {
    std::string text;
    try {
        if (files_.Exists(path_)) text = files_.ReadWhole(path_);
    } catch (const RunTimeError&) {
        return;
    }
    text = Replace(text, "\r", "");
    for (const std::string_view line : Split(text, "\n")) {
        const std::size_t sign = line.find('=');
        if (sign == std::string_view::npos || sign + 1 == line.size()) continue;
        const std::vector<std::string_view> parts = Split(line.substr(sign + 1), " ");
        entries_[std::string(line.substr(0, sign))] = {
            std::string(parts.front()), parts.size() > 1 ? std::string(parts[1]) : std::string()};
    }
}

bool SuppliedRecord::IsUntouched(std::string_view name, std::string_view content) const {
    const auto known = entries_.find(name);
    return known != entries_.end() && known->second.Digest == DigestOf(content);
}

std::string SuppliedRecord::StampOf(std::string_view name) const {
    const auto known = entries_.find(name);
    return known == entries_.end() ? std::string() : known->second.Stamp;
}

void SuppliedRecord::Note(std::string_view name, std::string_view content, std::string_view stamp) {
    const Entry entry = {content.empty() ? "own" : DigestOf(content), std::string(stamp)};
    if (std::exchange(entries_[std::string(name)], entry) != entry) changed_ = true;
}

void SuppliedRecord::Write() {
    if (!changed_) return;
    std::string text;
    for (const auto& [name, entry] : entries_)
        text += name + "=" + entry.Digest + " " + entry.Stamp + std::string(LineEnd);
    try {
        files_.WriteWhole(path_, text);
        changed_ = false;
    } catch (const RunTimeError&) {
        // The workbench tells elsewhere what it cannot keep.
    }
}

void SuppliedRecord::Renew(std::string_view name, const std::string& path, std::string_view text) {
    if (files_.Exists(path)) {
        const std::string present = files_.ReadWhole(path);
        if (present != text && !IsUntouched(name, present)) return;
        if (present == text) return Note(name, text);
    }
    files_.WriteWhole(path, text);
    Note(name, text);
}

}  // namespace kvt
