#pragma once

#include "web/page_link.h"

namespace kvt {

// The link to the page that the program runs in: Module.link, as web/js/link.js has it.
class EmscriptenLink : public PageLink {
public:
    EmscriptenLink() = default;
    EmscriptenLink(const EmscriptenLink&) = delete;
    EmscriptenLink& operator=(const EmscriptenLink&) = delete;
    // What was said last, such as that the program has ended, still reaches the page.
    ~EmscriptenLink() override { Flush(); }

    void Send(std::string_view message) override;
    void SendNumbers(int control, int from, std::span<const float> numbers) override;
    void SendPicture(int control, const Pixels& picture) override;
    std::string Next(double milliseconds) override;
    double Now() override;

private:
    void Flush();

    std::string collected_;
};

}  // namespace kvt
