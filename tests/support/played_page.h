#pragma once

#include <rapidjson/document.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "web/page_event.h"
#include "web/page_link.h"

namespace kvt::test {

// A page without a browser: what it is to say is queued, what it was told is kept, and its clock moves by waiting
// alone. Files are stored where it is asked to, questions are answered by Answers and then by their defaults.
class PlayedPage : public PageLink {
public:
    PlayedPage();

    void Send(std::string_view message) override;
    void SendNumbers(int control, int from, std::span<const float> numbers) override;
    void SendPicture(int control, const Pixels& picture) override;
    std::string Next(double milliseconds) override;
    double Now() override { return Clock; }

    // Begins with these members beside the usual ones, instead of an empty page.
    void SayHello(const std::string& members);
    // Says something when it is asked next, or when its clock has come to a time.
    void Say(const std::string& event) { events_.push_back(event); }
    void SayAt(double time, const std::string& event) { later_.emplace(time, event); }

    // Whether it has nothing more to say now.
    bool Silent() const { return events_.empty() && (later_.empty() || later_.begin()->first > Clock); }

    // What the page shows of a control by its name: its number, and its properties, a text bare and others as JSON.
    int NumberOf(const std::string& name) const;
    std::string Shown(const std::string& name, const std::string& property) const;
    // The messages of a kind since Sent was cleared, as they came.
    std::vector<std::string> SentOf(const std::string& task) const;

    std::vector<std::string> Sent;
    // Rests of answers by the question, without the braces: {"message", "\"value\":\"Yes\""}. The first is taken.
    std::multimap<std::string, std::string> Answers;
    // How many milliseconds the answer to a question takes; the first is taken.
    std::multimap<std::string, double> Late;
    // What asking for it does besides.
    std::function<void(const std::string& task, const PageEvent& message)> OnAsked;
    std::map<std::string, std::string> Stored;
    std::vector<float> Operations;  // of the drawing that was told last
    double Clock = 0;
    // Nothing is to come any more: the program is to end.
    std::function<void()> OnIdle;

private:
    void Note(const std::string& message);
    void NoteName(const rapidjson::Value& made);
    std::string AnswerTo(const std::string& task, const std::string& message);

    std::deque<std::string> events_;
    std::multimap<double, std::string> later_;
    std::map<std::string, int> numbers_;
    std::map<int, std::string> forms_;
    std::map<int, std::map<std::string, std::string>> shown_;
};

}  // namespace kvt::test
