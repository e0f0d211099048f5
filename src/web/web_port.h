#pragma once

#include <functional>
#include <string>
#include <vector>

#include "web/web_system.h"

namespace kvt {

// Who stands at the other end of the line in place of a device of the browser.
class PlayedEnd {
public:
    virtual ~PlayedEnd() = default;
    // Something is on its way to it, with the settings of the line.
    virtual void Take(std::string_view characters, const LineSettings& line) = 0;
};

// The serial ports that the browser gives the page. It opens, writes and closes; the pace of the line is reckoned here,
// since no browser tells what its driver still holds.
class WebPort : public SerialPort, private WebClock {
public:
    WebPort(WebPage& page, WebSystem& system);
    ~WebPort() override;

    void Open() override;
    void Close() override;
    bool IsOpen() const override { return open_; }
    bool ChooseDevice() override;
    void Output(std::string_view text) override;
    double MillisecondsLeft() const override;
    double LeadTime() const override;
    std::string Input() override;
    std::string DeviceName(int number) const override;

    // The ports have other names now; what has happened to the one that is open.
    void TakeNames(const PageEvent& event);
    void Take(const PageEvent& event);
    std::function<void()> OnNames;

    // Puts somebody in the place of the browser's ports, or none. An open port stays open: its device is let go, and
    // opened again in the end. Not while something is on its way.
    void Join(PlayedEnd* other);
    const PlayedEnd* Joined() const { return other_; }
    // Comes from the one who is joined; false where the port is closed, and nobody hears it.
    bool Arrive(std::string_view characters);

protected:
    void SettingsChanged() override;

private:
    bool Waits() const;
    double Due() const override;
    bool Serve(double now) override;
    void OpenDevice();
    void Let();
    void Change();
    void Lose();
    // A line with nothing on it.
    void BeginLine();
    double Left(double now) const;
    bool IsStuck(double now);

    WebPage& page_;
    WebSystem& system_;
    LinePace pace_;
    LineWatch watch_;
    std::size_t waiting_ = 0;  // bytes that the device leaves lying, as the page tells
    std::vector<std::string> names_;
    std::string received_;
    std::string deviceSettings_;
    int deviceNumber_ = 0;   // of the port that the page holds; 0 for none
    bool toChoose_ = false;  // its user has not yet said which device that is
    PlayedEnd* other_ = nullptr;
    bool open_ = false;
    bool sending_ = false;
    bool changes_ = false;
};

}  // namespace kvt
