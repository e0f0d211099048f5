#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "basic/text.h"
#include "console/help_markup.h"
#include "console/help_pages.h"
#include "console/help_tables.h"
#include "console/script_session.h"
#include "program/code_tables.h"
#include "shell/help_documents.h"

namespace kvt::test {

namespace {

std::string BodyOf(std::string_view text) {
    HelpInserts inserts;
    inserts.Directive = [](std::string_view words, int) { return "[" + std::string(words) + "]"; };
    inserts.Example = [](const HelpBlock& block) { return block.Head + ":" + block.Lines.at(0); };
    const std::string page = HelpPage(text, inserts);
    const std::size_t begin = page.find("<body>\n") + 7;
    return page.substr(begin, page.find("</body>") - begin);
}

}  // namespace

TEST(HelpPage, MarksBecomeHtml) {
    const std::pair<const char*, const char*> cases[] = {
        {"## Arcs {#G02 #G03}\n", "<h2><a name=\"G02\"></a><a name=\"G03\"></a>Arcs</h2>\n"},
        {"one **two** *three*\nfour `a<b` [M99](#M99) 2 * 3",
         "<p>one <b>two</b> <i>three</i> four <code>a&lt;b</code> <a href=\"#M99\">M99</a> 2 * 3</p>\n"},
        {"\xC3\xA4 & \xE2\x82\xAC", "<p>&#228; &amp; &#8364;</p>\n"},
        {"- a\n  b\n- c\n\n2. d", "<ul>\n<li>a b</li>\n<li>c</li>\n</ul>\n<ol>\n<li>d</li>\n</ol>\n"},
        {"| A | B |\n|---|---|\n| 1 | *2* |",
         "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">\n<tr><th>A</th><th>B</th></tr>\n"
         "<tr><td>1</td><td><i>2</i></td></tr>\n</table>\n"},
        {"{{limits G01 MK4}}", "[limits G01 MK4]"},
        {"```example F1 mm\nG00 X1\n```\n", "F1 mm:G00 X1"},
        {"{ a brace", "<p>{ a brace</p>\n"},
    };
    for (const auto& [text, html] : cases) EXPECT_EQ(BodyOf(text), html);
    EXPECT_THROW(BodyOf("{{open"), HelpFault);
    EXPECT_THROW(BodyOf("```example MK4 mm\nG00 X1"), HelpFault);
}

// A document cannot show what the check refuses, nor a field that a code does not have.
TEST(HelpPage, FalseExamplesBreakTheBuild) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.Path() / "in/en");
    for (const auto& [block, result] :
         std::initializer_list<std::pair<const char*, int>>{{"MK4 mm\nG02 X300 Z-300 F80\nM30", 0},
                                                            {"MK4 mm\nG02 X300 Z-400 F80\nM30", 1},
                                                            {"MK4 mm error\nG02 X300 Z-400 F80\nM30", 0},
                                                            {"MK4 mm error\nG02 X300 Z-300 F80\nM30", 1},
                                                            {"MK2 mm\nG00 X1 H2\nG22", 1},
                                                            {"MK9 mm\nG00 X1", 1}}) {
        std::ofstream(folder.Path() / "in/en/page.md") << "```example " << block << "\n```\n";
        EXPECT_EQ(MakeHelp(folder.Path() / "in", folder.Path() / "out"), result) << block;
    }
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "out/en/page_1.svg"));
    EXPECT_NE(HelpTable("limits G01 MK4", "").find("<td>F</td><td>2 &#8230; 499</td><td>2 &#8230; 199</td>"),
              std::string::npos);
    EXPECT_EQ(HelpTable("limits M30 MK4", ""), "");
    // Commands of the machine alone stand among the others.
    const std::string commands = HelpTable("commands MK4", "");
    const std::size_t panel = commands.find("#G66");
    EXPECT_LT(commands.find("#G33"), panel);
    EXPECT_GT(commands.find("#G73"), panel);
}

// F1 on a code finds its section, on each machine and in each language.
TEST(HelpPage, EveryCodeHasItsSection) {
    const std::tuple<MachineModel, const char*, std::span<const CodeEntry>> lists[] = {
        {MachineModel::MK2, "gcode_mk2", MK2Gcodes()}, {MachineModel::MK4, "gcode_mk4", MK4Gcodes()},
        {MachineModel::MK4, "gcode_mk4", MK4Mcodes()}, {MachineModel::F1, "gcode_mk4", F1Gcodes()},
        {MachineModel::F1, "gcode_mk4", F1Mcodes()},
    };
    for (const char* language : {"en", "de"}) {
        for (const auto& [machine, document, codes] : lists) {
            std::ifstream file(std::string(KVT_SOURCE_DIR "/help/") + language + "/" + document + ".md");
            const std::string text((std::istreambuf_iterator<char>(file)), {});
            for (const CodeEntry& entry : codes) {
                const std::string anchor = HelpDocuments::AnchorOf(machine, std::string(Trim(entry.Code)));
                const bool found = text.find("#" + anchor + " ") != std::string::npos ||
                                   text.find("#" + anchor + "}") != std::string::npos;
                EXPECT_TRUE(found) << language << " " << document << " " << anchor;
            }
        }
    }
}

}  // namespace kvt::test
