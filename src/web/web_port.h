#pragma once

#include <string>
#include <vector>

#include "web/web_system.h"

namespace kvt {

// The serial ports that the browser gives the page. It opens, writes and closes; the pace of the line is reckoned here,
// since no browser tells what its driver still holds.
class WebPort : public SerialPort, private WebClock {
public:
    WebPort(WebPage& page, WebSystem& system);
    ~WebPort() override;

    void Open() override;
    void Close() override;
    bool IsOpen() const override { return open_; }
    void Output(std::string_view text) override;
    double MillisecondsLeft() const override;
    double LeadTime() const override;
    std::string Input() override;
    std::string DeviceName(int number) const override;

    // The ports have other names now; what has happened to the one that is open.
    void TakeNames(const PageEvent& event);
    void Take(const PageEvent& event);

protected:
    void SettingsChanged() override;

private:
    double Due() const override;
    bool Serve(double now) override;
    void Let();
    bool Change();

    WebPage& page_;
    WebSystem& system_;
    LinePace pace_;
    std::vector<std::string> names_;
    std::string received_;
    std::string deviceSettings_;
    int deviceNumber_ = 0;  // of the port that the page holds; 0 for none
    bool open_ = false;
    bool sending_ = false;
    bool changes_ = false;
};

}  // namespace kvt
