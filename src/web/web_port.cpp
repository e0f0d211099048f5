#include "web/web_port.h"

#include <algorithm>
#include <utility>

#include "basic/code_page.h"
#include "basic/run_time_error.h"

namespace kvt {

namespace {

// Milliseconds: what a message takes to the driver, with some time to spare.
constexpr double leadTime = 20;
// A device that has taken nothing for so long takes nothing any more.
constexpr double longestStall = 5000;

}  // namespace

WebPort::WebPort(WebPage& page, WebSystem& system) : page_(page), system_(system) { system_.Watch(*this); }

WebPort::~WebPort() { system_.Forget(*this); }

void WebPort::Open() {
    if (open_ || CommPort() > static_cast<int>(names_.size())) throw RunTimeError(fault::PortAlreadyOpen);
    // One that is still to be let go goes on as it is.
    if (!other_ && (deviceNumber_ != CommPort() || deviceSettings_ != Settings())) OpenDevice();
    open_ = true;
    changes_ = false;
    received_.clear();
}

void WebPort::OpenDevice() {
    Let();
    Message message("portOpen");
    message.Add("number", CommPort()).Text("settings", Settings());
    const PageEvent answer = system_.Ask(message, WebSystem::Meanwhile::Nothing);
    if (!answer.Flag("ok")) throw RunTimeError(fault::PortAlreadyOpen);
    toChoose_ = answer.Flag("later");
    deviceNumber_ = CommPort();
    deviceSettings_ = Settings();
    BeginLine();
}

void WebPort::BeginLine() {
    pace_.Reset();
    watch_ = {};
    waiting_ = 0;
}

bool WebPort::ChooseDevice() {
    if (!open_ || !toChoose_) return true;
    Message message("portChoose");
    message.Add("number", deviceNumber_).Text("settings", Settings());
    deviceSettings_ = Settings();
    changes_ = false;
    const PageEvent answer = system_.Ask(message, WebSystem::Meanwhile::Timers);
    if (answer.Flag("cancelled")) return false;
    toChoose_ = false;
    if (answer.Flag("ok")) return true;
    deviceNumber_ = 0;
    open_ = false;
    throw RunTimeError(fault::PortAlreadyOpen);
}

// The device is let go when what was given has left.
void WebPort::Close() {
    if (!std::exchange(open_, false)) return;
    changes_ = false;
    if (pace_.Left(system_.Milliseconds()) <= 0) Let();
}

void WebPort::Let() {
    deviceSettings_.clear();
    sending_ = false;
    if (std::exchange(deviceNumber_, 0) == 0 || std::exchange(toChoose_, false)) return;
    system_.Ask(Message("portClose"), WebSystem::Meanwhile::Nothing);
}

void WebPort::Join(PlayedEnd* other) {
    if (other == other_) return;
    Let();
    other_ = other;
    changes_ = false;
    BeginLine();
    if (other_ || !std::exchange(open_, false)) return;
    try {
        Open();
    } catch (const RunTimeError&) {
        system_.Run("Comm", [this] { Tell(CommEvent::Vanished); });
    }
}

bool WebPort::Arrive(std::string_view characters) {
    if (!open_) return false;
    received_ += characters;
    system_.Run("Comm", [this] { Tell(CommEvent::Receive); });
    return true;
}

void WebPort::Output(std::string_view text) {
    // New settings are for what is given from now on, where nothing is under way.
    if (open_ && changes_ && Left(system_.Milliseconds()) <= 0) Change();
    if (!open_ || toChoose_) throw RunTimeError(fault::PortNotOpen);
    pace_.Add(system_.Milliseconds(), text.size(), Line());
    sending_ = true;
    if (other_) return other_->Take(text, Line());
    watch_.Add(text.size());
    if (waiting_ > 0) waiting_ += text.size();
    page_.Send(Message("portWrite").Bytes("data", text));
}

// By the rate of the line, and what the device of an open one has not taken besides.
double WebPort::Left(double now) const {
    const std::size_t waiting = open_ ? waiting_ : 0;
    return std::max(pace_.Left(now), static_cast<double>(waiting) * Line().CharacterMilliseconds());
}

double WebPort::MillisecondsLeft() const { return open_ ? Left(system_.Milliseconds()) : 0; }

double WebPort::LeadTime() const { return leadTime; }

std::string WebPort::Input() {
    if (!open_) throw RunTimeError(fault::PortNotOpen);
    return std::exchange(received_, {});
}

std::string WebPort::DeviceName(int number) const {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < names_.size() ? names_[index] : std::string();
}

// A browser takes other settings only by closing the port and opening it again, so never with something under way.
void WebPort::SettingsChanged() { changes_ = !other_ && !toChoose_ && Settings() != deviceSettings_; }

void WebPort::Change() {
    changes_ = false;
    Message message("portSettings");
    message.Text("settings", Settings());
    deviceSettings_ = Settings();
    const PageEvent answer = system_.Ask(message, WebSystem::Meanwhile::Nothing);
    if (answer.Flag("ok")) return;
    if (answer.Flag("refused")) return Tell(CommEvent::Refused);
    Lose();
}

// The device has gone.
void WebPort::Lose() {
    deviceNumber_ = 0;
    deviceSettings_.clear();
    sending_ = false;
    BeginLine();
    if (std::exchange(open_, false)) system_.Run("Comm", [this] { Tell(CommEvent::Vanished); });
}

bool WebPort::Waits() const { return sending_ || changes_ || (deviceNumber_ != 0 && !open_); }

double WebPort::Due() const {
    if (!Waits()) return Never;
    const double now = system_.Milliseconds();
    return now + Left(now);
}

bool WebPort::IsStuck(double now) {
    return open_ && sending_ && watch_.Stalled(now, waiting_, pace_.Left(now)) > longestStall;
}

bool WebPort::Serve(double now) {
    if (!Waits()) return false;
    if (IsStuck(now)) {
        Let();
        Lose();
        return true;
    }
    if (Left(now) > 0) return false;
    const bool sent = std::exchange(sending_, false);
    if (deviceNumber_ != 0 && !open_) return Let(), true;
    if (changes_) Change();
    if (sent && open_) system_.Run("Comm", [this] { Tell(CommEvent::Send); });
    return true;
}

void WebPort::TakeNames(const PageEvent& event) {
    names_.clear();
    event.EachText("names", [this](std::string_view name) {
        if (names_.size() < PortCount) names_.push_back(NameFromSystem(name));
    });
    if (OnNames) OnNames();
}

// What a device brings that has been let go is nobody's.
void WebPort::Take(const PageEvent& event) {
    if (deviceNumber_ == 0) return;
    if (event.Has("data")) {
        Arrive(event.Bytes("data"));
    } else if (event.Has("waits")) {
        waiting_ = static_cast<std::size_t>(std::max(0, event.Number("waits")));
    } else if (event.Flag("vanished")) {
        Lose();
    }
}

}  // namespace kvt
