// Test stand-ins for the random draw, the message boxes, the printer and the end of the process.
#pragma once

#include "MessageBoxes.h"
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

// Boxes that answer OK and remember what they were asked to show.
class RecordingBoxes : public MessageBoxes {
public:
    int MsgBox(const QString& prompt, int style, const QString& title) override {
        shown.push_back(prompt);
        titles.push_back(title);
        styles.push_back(style);
        return vbOK;
    }
    void RuntimeErrorBox(int number, const QString& description) override {
        shown.push_back(QStringLiteral("Run-time error '%1': %2").arg(number).arg(description));
    }
    std::vector<QString> shown;
    // The title and the style of each MsgBox, beside its prompt in shown (run-time errors have none).
    std::vector<QString> titles;
    std::vector<int> styles;
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

}  // namespace skelda::test
