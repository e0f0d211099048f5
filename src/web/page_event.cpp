#include "web/page_event.h"

#include <algorithm>
#include <cmath>

#include "basic/code_page.h"

namespace kvt {

namespace {

// Whole numbers are held to it, so that they can be added.
constexpr double largest = 1'000'000'000;

std::string_view TextOf(const rapidjson::Value& value) {
    return {value.GetString(), value.GetStringLength()};
}

// Characters up to 255 take two bytes of UTF-8 at the most, longer ones count as one.
std::string BytesOf(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80) {
            bytes += utf8[i];
        } else if (lead < 0xC4 && i + 1 < utf8.size()) {
            bytes += static_cast<char>((lead & 0x03) << 6 | (static_cast<unsigned char>(utf8[++i]) & 0x3F));
        } else {
            bytes += '?';
            while (i + 1 < utf8.size() && (static_cast<unsigned char>(utf8[i + 1]) & 0xC0) == 0x80) ++i;
        }
    }
    return bytes;
}

}  // namespace

PageEvent::PageEvent(std::string_view json) : document_(std::make_shared<rapidjson::Document>()) {
    if (!json.empty()) document_->Parse(json.data(), json.size());
    if (document_->HasParseError() || !document_->IsObject()) document_->SetObject();
}

const rapidjson::Value* PageEvent::Find(std::string_view member) const {
    const rapidjson::Value name(rapidjson::StringRef(member.data(), member.size()));
    if (!document_->HasMember(name)) return nullptr;
    const rapidjson::Value& found = (*document_)[name];
    return found.IsNull() ? nullptr : &found;
}

double PageEvent::Real(std::string_view member) const {
    const rapidjson::Value* const value = Find(member);
    return value && value->IsNumber() && std::isfinite(value->GetDouble()) ? value->GetDouble() : 0;
}

int PageEvent::Number(std::string_view member) const {
    return static_cast<int>(std::round(std::clamp(Real(member), -largest, largest)));
}

bool PageEvent::Flag(std::string_view member) const {
    const rapidjson::Value* const value = Find(member);
    return value && value->IsBool() && value->GetBool();
}

std::string_view PageEvent::Raw(std::string_view member) const {
    const rapidjson::Value* const value = Find(member);
    return value && value->IsString() ? TextOf(*value) : std::string_view();
}

std::string PageEvent::Code(std::string_view member) const { return FromUtf8(Raw(member)); }

std::string PageEvent::Path(std::string_view member) const { return NameFromSystem(Raw(member)); }

std::string PageEvent::Bytes(std::string_view member) const { return BytesOf(Raw(member)); }

void PageEvent::EachFile(
    std::string_view member,
    const std::function<void(std::string path, const std::string* content)>& take) const {
    const rapidjson::Value* const files = Find(member);
    if (!files || !files->IsObject()) return;
    for (const auto& file : files->GetObject()) {
        const std::string content = file.value.IsString() ? BytesOf(TextOf(file.value)) : std::string();
        take(NameFromSystem(TextOf(file.name)), file.value.IsString() ? &content : nullptr);
    }
}

void PageEvent::EachText(std::string_view member,
                         const std::function<void(std::string_view utf8)>& take) const {
    const rapidjson::Value* const texts = Find(member);
    if (!texts || !texts->IsArray()) return;
    for (const auto& text : texts->GetArray()) {
        if (text.IsString()) take(TextOf(text));
    }
}

}  // namespace kvt
