#include "app/web_machine.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/text.h"
#include "system/offscreen_platform.h"

namespace kvt {

namespace {

// Milliseconds.
constexpr double step = 10;      // the shortest between two pieces of what passes
constexpr double telling = 100;  // and between two messages of them
constexpr double looking = 100;  // for the end of a transmission
// Whoever stands at the machine has it listen anew for each program; a pause of this length lies between two.
constexpr double pause = 1000;
constexpr int slowest = 300;

// The names of the states in the page.
constexpr const char* stateNames[] = {"listening", "receiving", "received", "noProgram",
                                      "sending",   "sent",      "nothing",  "portClosed"};

// Where what has come lies while it is read.
constexpr const char* receivedFile = "/link/received";

}  // namespace

WebMachine::WebMachine(WebPlatform& platform, std::function<bool()> lineIsBusy)
    : platform_(platform),
      lineIsBusy_(std::move(lineIsBusy)),
      always_(platform.Hello().Flag("withoutSerial")) {
    platform_.System.Watch(*this);
    platform_.OnOther["machine"] = [this](const PageEvent& event) { TakePanel(event); };
    if (always_) platform_.Port.Join(this);
}

WebMachine::~WebMachine() { platform_.System.Forget(*this); }

void WebMachine::TakePanel(const PageEvent& event) {
    const std::string_view what = event.Raw("what");
    if (what == "open" || what == "close") {
        Show(what == "open");
    } else if (what == "baud") {
        line_.Baud = std::max(slowest, event.Number("baud"));
        sendingPace_.SetEach(line_.CharacterMilliseconds());
    } else if (what == "send") {
        BeginSending();
    } else if (what == "stop" && state_ == State::Sending) {
        Become(State::Sent);
    } else if (what == "clear") {
        Forget();
        Become(State::Listening);
    }
    FollowPanel();
    Tell(platform_.System.Milliseconds());
}

void WebMachine::Show(bool shown) {
    shown_ = shown;
    told_ = 0;
    if (!shown_ && state_ == State::Sending) Become(State::Sent);
}

// The line is not taken from under a transmission, to whomever it goes.
void WebMachine::FollowPanel() {
    if (!JoinsOtherwise() || IsBusy()) return;
    platform_.Port.Join(shown_ ? this : nullptr);
    untold_ = true;
}

void WebMachine::BeginSending() {
    if (state_ == State::Receiving || JoinsOtherwise()) return;
    outgoing_ = ControlSending(ReceivedFile(reception_.Text()));
    sent_ = 0;
    sendingPace_ = {};
    sendingPace_.SetEach(line_.CharacterMilliseconds());
    const bool empty = Trim(reception_.Text()).empty();
    Become(empty ? State::Nothing : platform_.Port.IsOpen() ? State::Sending : State::PortClosed);
}

void WebMachine::Forget() {
    reception_ = {};
    program_.reset();
    lost_ = 0;
    told_ = 0;
}

void WebMachine::Take(std::string_view characters, const LineSettings& line) {
    if (arriving_.empty()) receiving_.SetEach(line.CharacterMilliseconds());
    arriving_ += characters;
}

double WebMachine::Due() const {
    double due = Never;
    if (JoinsOtherwise()) due = platform_.System.Milliseconds() + looking;
    if (!arriving_.empty()) due = std::min(due, std::max(receiving_.Next(), heardAt_ + step));
    if (state_ == State::Sending) due = std::min(due, sendingPace_.Next() + step);
    return untold_ ? std::min(due, toldAt_ + telling) : due;
}

bool WebMachine::Serve(double now) {
    FollowPanel();
    Receive(now);
    if (untold_ && now >= toldAt_ + telling) Tell(now);
    // What listens to it may take its time, and have this served meanwhile.
    if (state_ == State::Sending) Send(now);
    return false;
}

void WebMachine::Receive(double now) {
    const std::size_t due = std::min(arriving_.empty() ? 0 : receiving_.Due(now), arriving_.size());
    if (due == 0) return;
    if (reception_.HasEnded() && now - heardAt_ >= pause && state_ != State::Sending) Forget();
    // Where it is the only port, it is shown who has the program now.
    if (always_ && reception_.Text().empty()) shown_ = true;
    const std::string piece = arriving_.substr(0, due);
    arriving_.erase(0, due);
    receiving_.Pass(due);
    heardAt_ = now;
    untold_ = true;
    const bool listened = !reception_.HasEnded() && state_ != State::Sending;
    const std::size_t taken = listened ? reception_.Take(piece) : 0;
    lost_ += static_cast<int>(due - taken);
    if (!listened) return;
    if (!reception_.HasEnded()) return Become(State::Receiving);
    platform_.Files.PutAside(receivedFile, ReceivedFile(reception_.Text()));
    OffscreenServices aside;
    kvt::Services services = aside.On(platform_.Files);
    program_ = ReadArrivedProgram(services, receivedFile);
    Become(program_ ? State::Received : State::NoProgram);
}

void WebMachine::Send(double now) {
    const std::size_t due = std::min(sendingPace_.Due(now), outgoing_.size() - sent_);
    if (due == 0) return;
    const std::string piece = outgoing_.substr(sent_, due);
    sendingPace_.Pass(due);
    sent_ += due;
    untold_ = true;
    if (sent_ == outgoing_.size()) Become(State::Sent);
    if (!platform_.Port.Arrive(piece)) Become(State::PortClosed);
}

void WebMachine::Become(State state) {
    state_ = state;
    untold_ = true;
}

// All that the panel shows; of the text what has come to it.
void WebMachine::Tell(double now) {
    untold_ = false;
    toldAt_ = now;
    Message message("machine");
    message.Add("shown", shown_).Text("state", stateNames[static_cast<int>(state_)]);
    if (shown_) {
        const std::string& text = reception_.Text();
        const auto left = static_cast<double>(outgoing_.size() - sent_) * line_.CharacterMilliseconds();
        message.Add("waits", JoinsOtherwise()).Add("baud", line_.Baud).Add("lost", lost_);
        message.Add("characters", static_cast<int>(text.size()));
        if (program_) message.Add("lines", program_->Lines).Text("type", FactsOf(program_->Machine).Name);
        message.Add("sent", static_cast<int>(sent_)).Add("of", static_cast<int>(outgoing_.size()));
        message.Add("seconds", std::ceil(left / 1000));
        message.Add("from", static_cast<int>(told_)).Bytes("text", std::string_view(text).substr(told_));
        told_ = text.size();
    }
    platform_.Page.Send(message);
}

}  // namespace kvt
