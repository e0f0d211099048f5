#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "headless/memory_platform.h"
#include "support/program_generator.h"

// Writes programs of all settings into a folder: generate_programs FOLDER COUNT
int main(int argc, char** argv) {
    if (argc != 3) return 2;
    kvt::MemoryPlatform platform;
    const auto workbench = std::make_unique<kvt::Workbench>(platform.Services);
    workbench->Form_Load({});
    const std::vector<kvt::test::Setting>& settings = kvt::test::AllSettings();
    for (int i = 0; i < std::atoi(argv[2]); ++i) {
        const auto seed = static_cast<unsigned>(i);
        std::mt19937 random(seed);
        const std::string text = kvt::test::GeneratedFile(*workbench, settings[seed % settings.size()],
                                                          random, 5 + static_cast<int>(seed % 60));
        std::ofstream file(argv[1] + ("/" + std::to_string(i)) + ".cnc", std::ios::binary);
        file << text;
        if (!file.flush()) return 1;
    }
}
