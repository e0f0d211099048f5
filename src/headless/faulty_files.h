#pragma once

#include <memory>

#include "headless/fault_plan.h"
#include "platform/services.h"

namespace kvt {

// Files whose calls can be planned to fail. Looking is not among these calls: menus look into folders at any time.
class FaultyFiles : public FileService {
public:
    // service is the name that planned failures know it by; what goes on in the background has one of its own.
    FaultyFiles(FileService& files, FaultPlan& faults, const char* service = "file")
        : files_(files), faults_(faults), service_(service) {}

    bool Exists(std::string_view path) override { return files_.Exists(path); }
    std::optional<std::tm> WrittenAt(std::string_view path) override { return files_.WrittenAt(path); }
    std::string ReadWhole(std::string_view path) override { return Passed().ReadWhole(path); }
    void WriteWhole(std::string_view path, std::string_view content) override {
        Passed().WriteWhole(path, content);
    }
    void Append(std::string_view path, std::string_view content) override { Passed().Append(path, content); }
    void Delete(std::string_view path) override { Passed().Delete(path); }
    void MakeFolder(std::string_view path) override { Passed().MakeFolder(path); }
    FileService& InBackground() override {
        if (!background_)
            background_ = std::make_unique<FaultyFiles>(files_.InBackground(), faults_, "background");
        return *background_;
    }
    bool CanWrite(std::string_view folder) override { return files_.CanWrite(folder); }
    std::vector<std::string> List(std::string_view folder, std::string_view pattern) override {
        return files_.List(folder, pattern);
    }

private:
    FileService& Passed() {
        faults_.Pass(service_, fault::PathFileAccess);
        return files_;
    }

    FileService& files_;
    FaultPlan& faults_;
    const char* service_;
    std::unique_ptr<FileService> background_;
};

}  // namespace kvt
