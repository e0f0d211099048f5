#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/pictures.h"

namespace kvt {

// The way to the page and back. Messages are JSON objects in UTF-8 and reach the page in their order, together, with
// the next call of Next. docs/web.md lists them.
class PageLink {
public:
    // What SendNumbers is told instead of a place: the operations are those that are shown lit up.
    static constexpr int LitOperations = -1;

    virtual ~PageLink() = default;
    virtual void Send(std::string_view message) = 0;
    // Operations of the drawing of a control, OperationNumbers each, which take their place in its list from an index
    // on; what stood there and behind goes.
    virtual void SendNumbers(int control, int from, std::span<const float> numbers) = 0;
    // The picture that the drawing of a control begins with.
    virtual void SendPicture(int control, const Pixels& picture) = 0;
    // Waits for the page's next event, some milliseconds at the most; empty where none came. 0 waits for nothing.
    virtual std::string Next(double milliseconds) = 0;
    // Milliseconds of a clock that is never set.
    virtual double Now() = 0;
};

// How many numbers an operation of a drawing is: kind, style, mode, fill, ink, ink of the fill, X1, Y1, X2, Y2, start
// and end (no number for none), width.
inline constexpr int OperationNumbers = 13;

}  // namespace kvt
