#include "web/emscripten_link.h"

#include <emscripten.h>

#include <cstdlib>
#include <utility>

// What the page does at once; only kvt_next waits. Texts that come from the page are to be freed.
// clang-format off
EM_JS(void, kvt_send, (const char* messages, int length), {
    Module.link.messages(UTF8ToString(messages, length));
})
EM_JS(void, kvt_send_numbers, (int control, int from, const float* numbers, int count), {
    Module.link.numbers(control, from, HEAPF32.slice(numbers >> 2, (numbers >> 2) + count));
})
EM_JS(void, kvt_send_picture, (int control, int width, int height, const unsigned* points), {
    const first = points >> 2;
    Module.link.picture(control, width, height, HEAPU32.slice(first, first + width * height));
})
EM_JS(double, kvt_now, (void), { return Module.link.now(); })
// The one function that takes time: the page has the program pause until take is called.
EM_JS(char*, kvt_next, (double milliseconds), {
    return Module.pause((take) => Module.link.wait(milliseconds, (text) => {
        const length = lengthBytesUTF8(text) + 1;
        const kept = _malloc(length);
        stringToUTF8(text, kept, length);
        take(kept);
    }));
})
// clang-format on

namespace kvt {

void EmscriptenLink::Send(std::string_view message) {
    collected_ += collected_.empty() ? '[' : ',';
    collected_ += message;
}

void EmscriptenLink::Flush() {
    if (collected_.empty()) return;
    collected_ += ']';
    const std::string messages = std::exchange(collected_, {});
    kvt_send(messages.data(), static_cast<int>(messages.size()));
}

void EmscriptenLink::SendNumbers(int control, int from, std::span<const float> numbers) {
    // The control may have been made by a message that is on its way.
    Flush();
    kvt_send_numbers(control, from, numbers.data(), static_cast<int>(numbers.size()));
}

void EmscriptenLink::SendPicture(int control, const Pixels& picture) {
    Flush();
    static_assert(sizeof picture.Points[0] == sizeof(unsigned));
    kvt_send_picture(control, picture.Width, picture.Height, picture.Points.data());
}

std::string EmscriptenLink::Next(double milliseconds) {
    Flush();
    char* const kept = kvt_next(milliseconds);
    std::string event(kept);
    std::free(kept);
    return event;
}

double EmscriptenLink::Now() { return kvt_now(); }

}  // namespace kvt
