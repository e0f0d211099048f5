#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "headless/faulty_platform.h"
#include "shell/workbench.h"
#include "support/program_text.h"

namespace kvt::test {

// The programs of the samples, in order.
std::vector<std::string> SampleFiles();

// A workbench on the memory half, with a folder of its own that goes with it.
class WorkbenchFixture : public ::testing::Test {
protected:
    WorkbenchFixture();
    ~WorkbenchFixture() override;

    // Puts a text into a file of the folder and loads it.
    LoadResult Load(const std::string& text, const std::string& name = "program.cnc");
    // Loads a program made of lines and gives back the workbench's rows.
    void Check(const std::string& machine, const std::vector<Line>& lines, const std::string& units = "M");

    // The cell of the row of line number N (row N + 1).
    std::string Cell(int line, int column) const;
    std::string Error(int line) const;  // trimmed
    std::string Path(const std::string& name) const { return Folder + "/" + name; }
    std::string FileContent(const std::string& name);
    // Writes a file of the folder; its path.
    std::string Put(const std::string& name, const std::string& text);

    std::string Folder;
    FaultyPlatform Platform;
    std::unique_ptr<kvt::Workbench> Workbench;
};

}  // namespace kvt::test
