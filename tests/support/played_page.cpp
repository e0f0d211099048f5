#include "support/played_page.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <stdexcept>

namespace kvt::test {

namespace {

std::string TextOf(const rapidjson::Value& value) {
    if (value.IsString()) return {value.GetString(), value.GetStringLength()};
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    value.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
}

// What an unanswered question gets.
constexpr std::pair<const char*, const char*> usualAnswers[] = {
    {"message", "\"value\":\"Yes\""}, {"open", "\"cancelled\":true"}, {"save", "\"cancelled\":true"},
    {"store", "\"ok\":true"},         {"saveFile", "\"ok\":true"},    {"print", "\"ok\":true"},
    {"portOpen", "\"ok\":true"},      {"portSettings", "\"ok\":true"}};

}  // namespace

PlayedPage::PlayedPage() {
    Say(R"({"on":"hello","width":19200,"height":12000,"share":{},"stored":{},"names":[]})");
}

void PlayedPage::Send(std::string_view message) {
    Sent.emplace_back(message);
    Note(Sent.back());
}

void PlayedPage::Note(const std::string& message) {
    rapidjson::Document document;
    document.Parse(message.data(), message.size());
    if (document.HasParseError() || !document.IsObject()) throw std::runtime_error("no JSON: " + message);
    const std::string task = document["do"].GetString();
    if (task == "make") numbers_[document["name"].GetString()] = document["id"].GetInt();
    if (document.HasMember("p")) {
        auto& shown = shown_[document["id"].GetInt()];
        for (const auto& property : document["p"].GetObject())
            shown[property.name.GetString()] = TextOf(property.value);
    }
    if (!document.HasMember("ask")) return;
    if (OnAsked) OnAsked(task, PageEvent(message));
    // What is asked is answered before anything else that was to come.
    events_.push_front("{\"on\":\"reply\",\"ask\":" + std::to_string(document["ask"].GetInt()) + "," +
                       AnswerTo(task, message) + "}");
}

std::string PlayedPage::AnswerTo(const std::string& task, const std::string& message) {
    const auto answer = Answers.find(task);
    if (answer != Answers.end()) {
        std::string text = answer->second;
        Answers.erase(answer);
        return text;
    }
    const PageEvent event(message);
    if (task == "store" || task == "saveFile") {
        if (event.Has("content")) {
            Stored[std::string(event.Raw("path"))] = event.Bytes("content");
        } else {
            Stored.erase(std::string(event.Raw("path")));
        }
    }
    for (const auto& [question, usual] : usualAnswers) {
        if (task == question) return usual;
    }
    return "\"ok\":true";
}

void PlayedPage::SendNumbers(int, int from, std::span<const float> numbers) {
    if (from == LitOperations) return;
    Operations.resize(static_cast<std::size_t>(from) * OperationNumbers);
    Operations.insert(Operations.end(), numbers.begin(), numbers.end());
}

void PlayedPage::SendPicture(int, const Pixels&) { Operations.clear(); }

std::string PlayedPage::Next(double milliseconds) {
    if (!later_.empty() && later_.begin()->first <= Clock + milliseconds) {
        Clock = std::max(Clock, later_.begin()->first);
        events_.push_back(later_.begin()->second);
        later_.erase(later_.begin());
    }
    if (events_.empty()) {
        Clock += milliseconds;
        if (later_.empty() && OnIdle) OnIdle();
        return {};
    }
    std::string event = std::move(events_.front());
    events_.pop_front();
    return event;
}

int PlayedPage::NumberOf(const std::string& name) const {
    const auto found = numbers_.find(name);
    return found == numbers_.end() ? 0 : found->second;
}

std::string PlayedPage::Shown(const std::string& name, const std::string& property) const {
    const auto shown = shown_.find(NumberOf(name));
    if (shown == shown_.end()) return {};
    const auto found = shown->second.find(property);
    return found == shown->second.end() ? std::string() : found->second;
}

std::vector<std::string> PlayedPage::SentOf(const std::string& task) const {
    std::vector<std::string> found;
    std::copy_if(Sent.begin(), Sent.end(), std::back_inserter(found),
                 [&](const std::string& one) { return one.find("{\"do\":\"" + task + "\"") == 0; });
    return found;
}

}  // namespace kvt::test
