#pragma once

#include <map>
#include <optional>
#include <string>

#include "web/web_system.h"

namespace kvt {

// The files of the page. They are kept here, by their paths; the page has those of "/data" in the browser's storage,
// writes those without a folder back to where the user opened or saved them, and brings those of "/share", which stay
// as they are.
class WebFiles : public FileService {
public:
    explicit WebFiles(WebSystem& system) : system_(system) {}

    bool Exists(std::string_view path) override;
    std::optional<std::tm> WrittenAt(std::string_view path) override;
    std::string ReadWhole(std::string_view path) override;
    void WriteWhole(std::string_view path, std::string_view content) override;
    void Append(std::string_view path, std::string_view content) override;
    bool CanWrite(std::string_view folder) override;
    void Delete(std::string_view path) override;
    void MakeFolder(std::string_view path) override;
    std::vector<std::string> List(std::string_view folder, std::string_view pattern) override;

    // A file that the page has; without a content it is asked for it when it is read.
    void Put(std::string_view path, std::optional<std::string> content);
    // Whether it is there, or may be when it is asked for.
    bool Knows(std::string_view path) const;
    // One that the page never hears of: it goes with the program.
    void PutAside(std::string_view path, std::string_view content);
    // When a file that is there was written, in seconds since 1970 as digits; another text tells nothing.
    void SetWritten(std::string_view path, std::string_view seconds);
    // Whether the browser's storage takes what is written; it is kept here all the same.
    void SetStorage(bool stores) { stores_ = stores; }
    // The path of a file of the user's: the name that he knows it by, wherever it says it lies.
    static std::string PathOf(std::string_view name);

private:
    struct File {
        std::optional<std::string> Content;
        std::optional<std::tm> Written;
        bool Aside = false;
    };
    bool Fetch(const std::string& path, File& file);
    void Keep(const std::string& path, const std::string* content);

    WebSystem& system_;
    std::map<std::string, File> files_;
    bool stores_ = true;
};

}  // namespace kvt
