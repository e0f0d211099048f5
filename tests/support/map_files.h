#pragma once

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "headless/memory_platform.h"

namespace kvt::test {

// Ends a fuzzing run where something that always holds does not.
inline void Demand(bool condition) {
    if (!condition) std::abort();
}

// Files in memory alone, for what is tried thousands of times a second and has nothing to do with a disk.
class MapFiles : public FileService {
public:
    std::map<std::string, std::string, std::less<>> Content;

    bool Exists(std::string_view path) override { return Content.find(path) != Content.end(); }
    std::optional<std::tm> WrittenAt(std::string_view) override { return std::nullopt; }
    std::string ReadWhole(std::string_view path) override {
        const auto found = Content.find(path);
        if (found == Content.end()) throw RunTimeError(fault::FileNotFound);
        return found->second;
    }
    void WriteWhole(std::string_view path, std::string_view content) override {
        Content[std::string(path)] = std::string(content);
    }
    bool CanWrite(std::string_view) override { return true; }
    void Append(std::string_view path, std::string_view content) override {
        Content[std::string(path)] += std::string(content);
    }
    void Delete(std::string_view path) override { Content.erase(std::string(path)); }
    void MakeFolder(std::string_view) override {}
    std::vector<std::string> List(std::string_view, std::string_view) override { return {}; }
};

// The services of the memory half, with files that are on no disk.
struct DisklessPlatform {
    MapFiles Files;
    MemoryPlatform Memory;
    kvt::Services Services{Files,        Memory.Dialogs, Memory.Clipboard, Memory.Screen,  Memory.System,
                           Memory.Focus, Memory.Port,    Memory.Printer,   Memory.Programs};
};

}  // namespace kvt::test
