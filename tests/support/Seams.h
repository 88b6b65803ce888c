// Test stand-ins for the random draw, the message boxes, the printer, the end of the process and
// the notification area.
#pragma once

#include "MessageBoxes.h"
#include "NotificationArea.h"
#include "Printer.h"
#include "ProcessEnd.h"
#include "Random.h"
#include "RecordingSurface.h"

#include <QString>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace skelda::test {

// A random draw that gives the values it was told, then 0.35, and counts its calls.
class ScriptedRandom : public Random {
public:
    void Randomize() override { ++reseeds; }
    double Rnd() override {
        ++drawn;
        if (draws.empty()) return 0.35;
        const double value = draws.front();
        draws.pop_front();
        return value;
    }
    std::deque<double> draws;
    int reseeds = 0;
    int drawn = 0;
};

// Boxes that remember what they were asked to show, and give the answers that the test queued for
// the next boxes, one each, as the user would answer them. A box with no answer queued is answered
// with its first button, as Enter answers it: OK, or Yes to a question.
class RecordingBoxes : public MessageBoxes {
public:
    int MsgBox(const QString& prompt, int style, const QString& title) override {
        Remember(prompt, style, title);
        if (answers.empty()) return (style & 0x0f) == vbYesNo ? vbYes : vbOK;
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void RuntimeErrorBox(int number, const QString& description) override {
        Remember(QStringLiteral("Run-time error '%1': %2").arg(number).arg(description), vbOKOnly, QString());
    }
    // Forgets the boxes shown so far.
    void Clear() {
        shown.clear();
        titles.clear();
        styles.clear();
    }

    std::deque<int> answers;  // the answers of the next boxes, in order
    std::vector<QString> shown;
    // The title and the style of each box, beside its prompt in shown (a run-time error box has no
    // title, and style 0).
    std::vector<QString> titles;
    std::vector<int> styles;

private:
    void Remember(const QString& prompt, int style, const QString& title) {
        shown.push_back(prompt);
        titles.push_back(title);
        styles.push_back(style);
    }
};

// A printer whose pages are what the test says, by default a fresh recording each.
class TestPrinter : public Printer {
public:
    std::shared_ptr<PageSurface> NewPage() override { return pages ? pages() : std::make_shared<RecordingSurface>(); }
    std::function<std::shared_ptr<PageSurface>()> pages;
};

// An end of the process that only counts: the test goes on after it.
class CountingProcessEnd : public ProcessEnd {
public:
    void End(int ExitCode) override {
        ++ends;
        codes.push_back(ExitCode);
    }
    int ends = 0;
    std::vector<int> codes;
};

// The desktop's notification area, with a watch that the tests of the start form set: it sees
// each call before the call goes on, and may fail it by throwing.
class WatchedNotificationArea : public NotificationArea {
public:
    void Shell_NotifyIconA(int dwMessage, const NotifyIconData& Data) override {
        if (watch) watch(dwMessage, Data);
        desktop_.Shell_NotifyIconA(dwMessage, Data);
    }
    std::function<void(int dwMessage, const NotifyIconData& Data)> watch;

private:
    DesktopNotificationArea desktop_;
};

}  // namespace skelda::test
