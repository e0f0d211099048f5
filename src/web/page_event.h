#pragma once

#include <rapidjson/document.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace kvt {

// What has come from the page: one JSON object. A member that is missing, or of another type, is 0, false or empty.
class PageEvent {
public:
    // A text that is no object makes an event without a name.
    explicit PageEvent(std::string_view json = {});

    // What has happened.
    std::string_view Name() const { return Raw("on"); }
    bool Is(std::string_view name) const { return Name() == name; }

    bool Has(std::string_view member) const { return Find(member) != nullptr; }
    int Number(std::string_view member) const;
    double Real(std::string_view member) const;
    bool Flag(std::string_view member) const;
    // A text as it came, UTF-8.
    std::string_view Raw(std::string_view member) const;
    // The same in the program's code page; a path that the code page lacks keeps its bytes.
    std::string Code(std::string_view member) const;
    std::string Path(std::string_view member) const;
    // A text whose characters are bytes; others are "?".
    std::string Bytes(std::string_view member) const;
    // The members of an object that are texts of bytes, or nothing, which gives null; and the texts of an array.
    void EachFile(std::string_view member,
                  const std::function<void(std::string path, const std::string* content)>& take) const;
    void EachText(std::string_view member, const std::function<void(std::string_view utf8)>& take) const;

private:
    const rapidjson::Value* Find(std::string_view member) const;

    std::shared_ptr<rapidjson::Document> document_;
};

}  // namespace kvt
