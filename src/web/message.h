#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>
#include <string_view>

namespace kvt {

// Writes a message to the page: one JSON object, a member at a time. Texts that are given as they are must be UTF-8.
class Message {
public:
    // Begins with what the page is to do.
    explicit Message(std::string_view task) {
        writer_.StartObject();
        Text("do", task);
    }

    Message& Name(std::string_view name) {
        writer_.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
        return *this;
    }
    // Values, behind a name or in an array. A text of the program is in its code page; one that people read may hold
    // file names that the code page lacks; bytes become the characters of their numbers.
    Message& Put(std::string_view utf8);
    Message& Put(const char* utf8) { return Put(std::string_view(utf8)); }
    Message& PutCode(std::string_view text);
    Message& PutShown(std::string_view text);
    Message& PutBytes(std::string_view bytes);
    Message& Put(bool flag) { return writer_.Bool(flag), *this; }
    Message& Put(int number) { return writer_.Int(number), *this; }
    Message& Put(unsigned number) { return writer_.Uint(number), *this; }
    Message& Put(double number);
    Message& PutNothing() { return writer_.Null(), *this; }

    // Members with a name and a value.
    template <class Value>
    Message& Add(std::string_view name, const Value& value) {
        return Name(name).Put(value);
    }
    Message& Text(std::string_view name, std::string_view utf8) { return Name(name).Put(utf8); }
    Message& Code(std::string_view name, std::string_view text) { return Name(name).PutCode(text); }
    Message& Shown(std::string_view name, std::string_view text) { return Name(name).PutShown(text); }
    Message& Bytes(std::string_view name, std::string_view bytes) { return Name(name).PutBytes(bytes); }

    Message& BeginObject() { return writer_.StartObject(), *this; }
    Message& EndObject() { return writer_.EndObject(), *this; }
    Message& BeginArray() { return writer_.StartArray(), *this; }
    Message& EndArray() { return writer_.EndArray(), *this; }

    // The whole message, which takes no more members.
    std::string_view End();

private:
    rapidjson::StringBuffer buffer_;
    rapidjson::Writer<rapidjson::StringBuffer> writer_{buffer_};
};

}  // namespace kvt
