#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace kvt {

// The text of one cell. Up to 15 characters stand in place, longer ones on the heap; 16 bytes in all, so that
// a row of the program fits a few cache lines.
class Cell {
public:
    static constexpr std::size_t InPlace = 15;

    Cell() { SetTag(0); }
    Cell(std::string_view text) {
        SetTag(0);
        Assign(text);
    }
    Cell(const Cell& other) {
        SetTag(0);
        Assign(other.View());
    }
    Cell(Cell&& other) noexcept {
        std::memcpy(bytes_, other.bytes_, sizeof bytes_);
        other.SetTag(0);
    }
    Cell& operator=(const Cell& other) {
        if (this != &other) Assign(other.View());
        return *this;
    }
    Cell& operator=(Cell&& other) noexcept {
        if (this != &other) {
            Drop();
            std::memcpy(bytes_, other.bytes_, sizeof bytes_);
            other.SetTag(0);
        }
        return *this;
    }
    Cell& operator=(std::string_view text) {
        Assign(text);
        return *this;
    }
    ~Cell() { Drop(); }

    std::string_view View() const {
        if (Tag() <= InPlace) return {bytes_, Tag()};
        return {HeapText(), HeapSize()};
    }
    operator std::string_view() const { return View(); }
    std::size_t Size() const { return Tag() <= InPlace ? Tag() : HeapSize(); }
    bool Empty() const { return Tag() == 0; }

    friend bool operator==(const Cell& cell, std::string_view text) { return cell.View() == text; }

    // text may look into this cell.
    void Assign(std::string_view text) {
        if (text.size() <= InPlace) {
            char* const heap = Tag() == OnHeap ? HeapText() : nullptr;
            if (!text.empty()) std::memmove(bytes_, text.data(), text.size());
            SetTag(static_cast<unsigned char>(text.size()));
            delete[] heap;
        } else {
            AssignLong(text);
        }
    }

private:
    static constexpr unsigned char OnHeap = 0xFF;

    unsigned char Tag() const { return static_cast<unsigned char>(bytes_[InPlace]); }
    void SetTag(unsigned char tag) { bytes_[InPlace] = static_cast<char>(tag); }
    char* HeapText() const {
        char* text = nullptr;
        std::memcpy(&text, bytes_, sizeof text);
        return text;
    }
    std::uint32_t HeapSize() const {
        std::uint32_t size = 0;
        std::memcpy(&size, bytes_ + sizeof(char*), sizeof size);
        return size;
    }
    void Drop() {
        if (Tag() == OnHeap) delete[] HeapText();
    }
    void AssignLong(std::string_view text);

    alignas(8) char bytes_[16];
};

static_assert(sizeof(Cell) == 16);

}  // namespace kvt
