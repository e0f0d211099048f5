#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/services.h"

namespace kvt {

// What an installation has put among a user's own files, so that a newer one renews its copies and leaves alone what
// the user has changed. It is kept in a file of lines NAME=DIGEST STAMP; one that is missing or makes no sense knows
// nothing, and then every file that differs counts as the user's.
class SuppliedRecord {
public:
    SuppliedRecord(FileService& files, std::string path);

    // Whether a file is still what was put there.
    bool IsUntouched(std::string_view name, std::string_view content) const;
    // The stamp under which the file was last looked at; empty for none.
    std::string StampOf(std::string_view name) const;
    // Takes down what was put there; without a content the file is the user's own.
    void Note(std::string_view name, std::string_view content, std::string_view stamp = {});
    // Keeps it, if it has changed; where that fails the next start compares anew.
    void Write();

    // Puts a text into a file that is missing, or still what was put there. Errors of the file service.
    void Renew(std::string_view name, const std::string& path, std::string_view text);

private:
    struct Entry {
        std::string Digest;
        std::string Stamp;
        bool operator==(const Entry&) const = default;
    };
    FileService& files_;
    std::string path_;
    std::map<std::string, Entry, std::less<>> entries_;
    bool changed_ = false;
};

}  // namespace kvt
