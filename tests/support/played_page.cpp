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

PlayedPage::PlayedPage() { SayHello("\"names\":[]"); }

// Of members that are there twice the first counts.
void PlayedPage::SayHello(const std::string& members) {
    events_ = {R"({"on":"hello",)" + members + R"(,"width":19200,"height":12000})"};
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
    if (task == "make") NoteName(document);
    if (document.HasMember("p")) {
        auto& shown = shown_[document["id"].GetInt()];
        for (const auto& property : document["p"].GetObject())
            shown[property.name.GetString()] = TextOf(property.value);
    }
    if (!document.HasMember("ask")) return;
    if (OnAsked) OnAsked(task, PageEvent(message));
    // What is asked is answered before anything else that was to come.
    const std::string answer = "{\"on\":\"reply\",\"ask\":" + std::to_string(document["ask"].GetInt()) + "," +
                               AnswerTo(task, message) + "}";
    const auto late = Late.find(task);
    if (late == Late.end()) return events_.push_front(answer);
    SayAt(Clock + late->second, answer);
    Late.erase(late);
}

// By the name alone, and with its form in front and its index behind: "frmDraw.mnuSim(2)".
void PlayedPage::NoteName(const rapidjson::Value& made) {
    const std::string name = made["name"].GetString();
    const int number = made["id"].GetInt();
    if (std::string(made["kind"].GetString()) == "Form") forms_[number] = name;
    const std::string form = forms_[made["form"].GetInt()] + ".";
    const std::string index =
        made.HasMember("index") ? "(" + std::to_string(made["index"].GetInt()) + ")" : std::string();
    for (const std::string& known : {name + index, form + name + index}) numbers_.emplace(known, number);
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
