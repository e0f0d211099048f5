#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "platform/services.h"

namespace kvt {

// The folders that may be written in, with all that lies below them.
class OwnFolders {
public:
    void Add(const std::filesystem::path& folder);
    // Whether a path, with the links on its way followed, lies in one of them.
    bool Hold(const std::filesystem::path& path) const;
    const std::vector<std::filesystem::path>& All() const { return folders_; }

private:
    std::vector<std::filesystem::path> folders_;
};

// Files that are changed in their own folders alone, and read everywhere. What is asked for elsewhere is told to
// OnRefused by the path where it would have been done, and is error 75.
class GuardedFiles : public FileService {
public:
    using Refusal = std::function<void(const std::string& path)>;
    GuardedFiles(FileService& files, const OwnFolders& folders) : files_(files), folders_(folders) {}

    Refusal OnRefused;

    bool Exists(std::string_view path) override { return files_.Exists(path); }
    std::optional<std::tm> WrittenAt(std::string_view path) override { return files_.WrittenAt(path); }
    std::string ReadWhole(std::string_view path) override { return files_.ReadWhole(path); }
    void WriteWhole(std::string_view path, std::string_view content) override;
    bool CanWrite(std::string_view folder) override { return files_.CanWrite(folder); }
    void Append(std::string_view path, std::string_view content) override;
    void Delete(std::string_view path) override;
    void MakeFolder(std::string_view path) override;
    FileService& InBackground() override;
    std::vector<std::string> List(std::string_view folder, std::string_view pattern) override {
        return files_.List(folder, pattern);
    }

private:
    void Demand(const std::filesystem::path& path) const;

    FileService& files_;
    const OwnFolders& folders_;
    std::unique_ptr<GuardedFiles> background_;
};

// Programs that are given files of these folders alone: they leave what they make beside them.
class GuardedPrograms : public ProgramService {
public:
    GuardedPrograms(ProgramService& programs, const OwnFolders& folders)
        : programs_(programs), folders_(folders) {}

    GuardedFiles::Refusal OnRefused;

    int Start(std::string_view commandLine, std::string_view file) override;
    bool HasEnded(int program) override { return programs_.HasEnded(program); }
    bool WasCutOff(int program) override { return programs_.WasCutOff(program); }
    void End(int program) override { programs_.End(program); }
    bool Launch(std::string_view name) override { return programs_.Launch(name); }

private:
    ProgramService& programs_;
    const OwnFolders& folders_;
};

}  // namespace kvt
