#pragma once

#include <functional>
#include <optional>
#include <string>

#include "shell/arrived_program.h"
#include "transfer/played_control.h"
#include "web/web_platform.h"

namespace kvt {

// The machine that the page plays: a control at the other end of the line, with a panel in the page. While the panel is
// shown the port ends there; in a browser without serial ports it always does.
class WebMachine : private PlayedEnd, private WebClock {
public:
    // lineIsBusy tells whether a program is being sent, under which the line is not taken away.
    WebMachine(WebPlatform& platform, std::function<bool()> lineIsBusy);
    ~WebMachine() override;
    WebMachine(const WebMachine&) = delete;
    WebMachine& operator=(const WebMachine&) = delete;

private:
    enum class State : std::uint8_t {
        Listening,
        Receiving,
        Received,
        NoProgram,
        Sending,
        Sent,
        Nothing,
        PortClosed,
    };

    void TakePanel(const PageEvent& event);
    void Show(bool shown);
    void BeginSending();
    void Forget();

    void Take(std::string_view characters, const LineSettings& line) override;
    double Due() const override;
    bool Serve(double now) override;
    bool IsBusy() const { return !arriving_.empty() || lineIsBusy_(); }
    bool JoinsOtherwise() const { return (shown_ || always_) != (platform_.Port.Joined() != nullptr); }
    void FollowPanel();
    void Receive(double now);
    void Send(double now);
    void Become(State state);
    void Tell(double now);

    WebPlatform& platform_;
    std::function<bool()> lineIsBusy_;
    bool always_;
    bool shown_ = false;
    State state_ = State::Listening;

    ControlReception reception_;
    CharacterPace receiving_;
    std::string arriving_;  // is on the line
    std::optional<ArrivedProgram> program_;
    double heardAt_ = 0;
    int lost_ = 0;  // came while nobody listened

    LineSettings line_;
    CharacterPace sendingPace_;
    std::string outgoing_;
    std::size_t sent_ = 0;

    std::size_t told_ = 0;  // of the reception's text
    double toldAt_ = 0;
    bool untold_ = false;
};

}  // namespace kvt
