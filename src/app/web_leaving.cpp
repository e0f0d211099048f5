#include "app/web_leaving.h"

#include <utility>

namespace kvt {

WebLeaving::WebLeaving(WebSystem& system, std::function<bool()> asks)
    : system_(system), asks_(std::move(asks)) {
    system_.Watch(*this);
}

bool WebLeaving::Serve(double) {
    const bool asks = asks_();
    if (std::exchange(told_, asks) == asks) return false;
    Message message("leaving");
    message.Add("asks", asks);
    system_.Tell(std::move(message));
    return false;
}

}  // namespace kvt
