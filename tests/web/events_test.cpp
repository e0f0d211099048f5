#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "support/web_page.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

// Events as no page sends them: any name, any control, members that are missing, wrong or out of range.
class AnyEvents {
public:
    explicit AnyEvents(unsigned seed) : random_(seed) {}

    std::string Next() {
        if (Among(200) == 0) return Any({"", "[]", "{\"on\":", "null", R"({"on":{"on":1}})", "\"on\""});
        const bool typed = Among(3) == 0;
        std::string event = "{\"on\":\"" + std::string(typed ? Any(typing) : Any(names)) + "\"";
        if (!typed && Among(20) > 0) event += ",\"id\":" + std::to_string(Among(400));
        if (Among(20) == 0) event += ",\"form\":" + std::to_string(Among(400));
        if (typed && Among(4) > 0)
            event +=
                ",\"key\":" + std::to_string(Any(keys)) + ",\"held\":" + std::to_string(Among(9) % 5 % 3);
        for (const char* member : numbers) {
            if (Among(3) > 0) event += std::string(",\"") + member + "\":" + Number();
        }
        for (const char* member : texts) {
            if (Among(3) == 0) event += std::string(",\"") + member + "\":" + Text();
        }
        if (Among(3) == 0) event += std::string(R"(,"what":")") + Any(deeds) + "\"";
        if (Among(3) == 0) event += std::string(R"(,"state":")") + Any(states) + "\"";
        return event + "}";
    }

    // The rest of an answer to a question.
    std::string Answer() {
        static const std::string program = JsonOf(
            FileText("MK4", {{"92", "  2000", "", "   500"}, {"84", "  1000", "", "   200"}, {"M30"}}));
        const std::string text = Text();
        const std::string content = Among(3) > 0 || text == noText ? program : text;
        switch (Among(6)) {
            case 0: return "\"cancelled\":true";
            case 1: return "\"ok\":false";
            case 2: return R"("value":"No")";
            default:
                return R"("value":"Yes","ok":true,"name":"a.cnc","text":)" + content +
                       ",\"color\":" + Number() + ",\"content\":" + content;
        }
    }

private:
    // A text that no reader of JSON takes: an answer has none, or its question stands for ever.
    static constexpr const char* noText = R"("\ud800")";
    static constexpr const char* typing[] = {"key", "key",  "key",   "key", "key",
                                             "key", "text", "paste", "drop"};
    static constexpr int keys[] = {8,  9,  13, 13, 13, 27, 32, 33, 34,  35,  36,  37,  38,
                                   39, 40, 45, 46, 65, 80, 83, 90, 112, 116, 117, 119, 120};
    static constexpr const char* names[] = {
        "press", "click",   "click",  "click",  "click",   "menu",     "menu",   "entry",  "entry",
        "row",   "row",     "header", "sight",  "tooltip", "edit",     "caret",  "mouse",  "mouse",
        "tab",   "range",   "found",  "place",  "state",   "activate", "resize", "screen", "port",
        "ports", "brought", "link",   "hidden", "unload",  "reply",    "hello",  "none",   "close"};
    static constexpr const char* numbers[] = {
        "row",  "column", "button", "held", "index", "page", "value", "start", "length",  "top",
        "rows", "width",  "height", "left", "x",     "y",    "key",   "ask",   "notches", "time"};
    static constexpr const char* texts[] = {"text", "char", "name", "content", "file", "data", "names"};
    static constexpr const char* deeds[] = {"move", "down", "double", "wheel", "up"};
    static constexpr const char* states[] = {"Normal", "Minimised", "Maximised", "Gone"};

    unsigned Among(unsigned count) { return static_cast<unsigned>(random_() % count); }
    template <class Value, std::size_t N>
    Value Any(const Value (&from)[N]) {
        return from[Among(N)];
    }
    const char* Any(std::initializer_list<const char*> from) { return from.begin()[Among(from.size())]; }

    std::string Number() {
        if (Among(3) > 0) return std::to_string(Among(Among(2) > 0 ? 6 : 130));
        return Any({"-1", "0", "1.5", "-1e300", "1e300", "2147483648", "-2147483649", "null", "\"7\"", "[1]",
                    "true"});
    }
    std::string Text() {
        if (Among(300) == 0) return "\"" + std::string(200'000, 'x') + "\"";
        return Any({R"("")", R"("G")", R"("7")", R"("-500")", R"("M30\r")", R"("%\r\nN 00")",
                    R"("\u0000\u0007")", R"("€ Ж 😀")", noText, R"("<b>&amp;")", R"("../a\\b.cnc")",
                    R"("samples/mk4_bolt.cnc")", R"({"a":["b"]})", "7"});
    }

    std::mt19937 random_;
};

// How many events are played: the environment variable, or a few.
int Wanted(const char* variable, int few) {
    const char* const wanted = std::getenv(variable);
    return wanted ? std::atoi(wanted) : few;
}

// Plays events until there are none left or the program has ended. Where a wait inside a handler has nothing more to
// wait for the next one comes there; behind the last one the window is closed, which ends all waits.
int Play(AnyEvents& events, int left) {
    WebPageFixture page;
    page.Page.SayHello(R"("names":["Com1"])");
    page.Start();
    page.Open("p.cnc", FileText("MK4", {{"92", "  2000", "", "   500"},
                                        {"00", "  1500", "", "   300"},
                                        {"84", "  1000", "  1000", "   200", "  50"},
                                        {"M30"}}));
    const std::string way = R"({"on":"close","form":)" + std::to_string(page.Page.NumberOf("frmMain")) + "}";
    int closed = 0;
    const auto say = [&] {
        page.Page.Say(left > 0 ? events.Next() : way);
        if (left > 0) {
            --left;
        } else if (++closed > 5000) {
            // A failure of the test would end no wait.
            std::abort();
        }
    };
    page.Page.OnIdle = say;
    page.Page.OnAsked = [&](const std::string& task, const PageEvent&) {
        if (page.Page.Answers.count(task) == 0) page.Page.Answers.emplace(task, events.Answer());
    };
    WebSystem& system = page.Session->Platform.System;
    while (!system.Ended()) {
        say();
        system.Turn(1);
    }
    return left;
}

TEST(WebEvents, WhateverThePageSaysTheProgramStandsAndEnds) {
    AnyEvents events(static_cast<unsigned>(Wanted("KVT_WEB_SEED", 18)));
    for (int left = Wanted("KVT_WEB_EVENTS", 1500); left > 0;) left = Play(events, left);
}

}  // namespace

}  // namespace kvt::test
