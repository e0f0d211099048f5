#include "files/iso/blocks.h"

#include "basic/number.h"
#include "basic/text.h"

namespace kvt::iso {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Reads one line.
class Scanner {
public:
    Scanner(std::string_view line, int number) : line_(line) { block_.Line = number; }

    Block Read() {
        while (at_ < line_.size()) {
            const char c = line_[at_];
            if (IsBlank(c) || c == '%' || c == '/') {
                ++at_;
            } else if (c == '(') {
                const std::size_t end = std::min(line_.find(')', at_), line_.size());
                AddComment(line_.substr(at_ + 1, end - at_ - 1));
                at_ = end + 1;
            } else if (c == ';') {
                AddComment(line_.substr(at_ + 1));
                at_ = line_.size();
            } else {
                ReadWord();
            }
        }
        return std::move(block_);
    }

private:
    void AddComment(std::string_view text) {
        std::string comment(text);
        for (char& c : comment) {
            // The percent sign is a mark of the machine's files.
            if (static_cast<unsigned char>(c) < ' ' || c == '%') c = ' ';
        }
        const std::string_view trimmed = Trim(comment);
        if (trimmed.empty()) return;
        if (!block_.Comment.empty()) block_.Comment += ' ';
        block_.Comment += trimmed;
    }

    void ReadWord() {
        Word word;
        word.Letter = UpperChar(line_[at_]);
        if (word.Letter == '#' || word.Letter == '[' || word.Letter == '=')
            throw Refusal{block_.Line, "variables and calculations are not converted"};
        if (word.Letter < 'A' || word.Letter > 'Z')
            throw Refusal{block_.Line, std::string("\"") + line_[at_] + "\" is no word"};
        ++at_;
        while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
        const std::size_t begin = at_;
        if (at_ < line_.size() && (line_[at_] == '-' || line_[at_] == '+')) ++at_;
        while (at_ < line_.size() && (IsDigit(line_[at_]) || line_[at_] == '.')) ++at_;
        word.Text = line_.substr(begin, at_ - begin);
        if (!IsNumeric(word.Text) || word.Text.size() > longestNumber)
            throw Refusal{block_.Line, std::string("no number behind ") + word.Letter};
        word.Value = Val(word.Text);
        if (word.Letter != 'N' && word.Letter != 'O') block_.Words.push_back(word);
    }

    static constexpr std::size_t longestNumber = 20;
    std::string_view line_;
    std::size_t at_ = 0;
    Block block_;
};

}  // namespace

std::vector<Block> ReadBlocks(std::string_view text) {
    std::vector<Block> blocks;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        Block block = Scanner(line, ++number).Read();
        if (!block.Words.empty() || !block.Comment.empty()) blocks.push_back(std::move(block));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return blocks;
}

}  // namespace kvt::iso
