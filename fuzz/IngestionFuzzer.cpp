// The reception of whatever arrives on the socket, as the poll cycle hands it over: the main
// window loaded over a database of its own in a temporary folder, the log and the pictures in
// another, and every input taken as one packet of a reply. The reception must never fail: a
// failure that escapes it, or a run-time error box, ends the run as a crash, and the sanitizers
// watch the rest (the decoder, the labels, the dial, the row written, the chart redrawn).
#include "Form1.h"
#include "Forms.h"
#include "MessageBoxes.h"
#include "NotificationArea.h"
#include "PollCycle.h"
#include "Printer.h"
#include "Random.h"
#include "RunTime.h"
#include "SeedDatabase.h"
#include "Services.h"
#include "TrayForm.h"

#include <QApplication>
#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTime>
#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace skelda {
namespace {

// No box may be shown by a reception: one is the sign of a failure that escaped.
class NoBoxes : public MessageBoxes {
public:
    int MsgBox(const QString& prompt, int, const QString&) override { Crash("a message box", prompt); }
    void RuntimeErrorBox(int number, const QString& description) override {
        Crash("run-time error box", QString::number(number) + u' ' + description);
    }
    [[noreturn]] static void Crash(const char* what, const QString& text) {
        std::fprintf(stderr, "%s: %s\n", what, qPrintable(text));
        std::abort();
    }
};

// The poll's port is drawn, but the reception draws nothing.
class FixedRandom : public Random {
public:
    void Randomize() override {}
    double Rnd() override { return 0.5; }
};

// The tray's form is only written to: the reception leaves the tray tip's text in its caption.
class CaptionOnly : public QWidget, public TrayForm {
public:
    QString Caption() const override { return windowTitle(); }
    void SetCaption(const QString& text) override { setWindowTitle(text); }
    void PopupMenu() override {}
};

// Everything a reception touches, made once for the whole run.
class Station {
public:
    Station() {
        if (!store_.isValid() || !run_.isValid()) Fail("no temporary folder");
        QString error;
        const QList<SeedAirport> airports{
            {QStringLiteral("LFPB"), QStringLiteral("Le Bourget"), QStringLiteral("Paris"), {}, true, true, {}},
            {QStringLiteral("LFPG"),
             QStringLiteral("Charles de Gaulle"),
             QStringLiteral("Roissy"),
             {},
             true,
             false,
             {}},
            {QStringLiteral("EGLL"), QStringLiteral("Heathrow"), QStringLiteral("London"), {}, true, false, {}},
            {QStringLiteral("KJFK"), QStringLiteral("Kennedy"), QStringLiteral("New York"), {}, true, false, {}},
        };
        if (!CreateDatabase(store_.filePath(QStringLiteral("database.mdb")), DatabaseSchema(), airports, &error))
            Fail(qPrintable(error));
        // The program finds log/ and Images/ under its current folder.
        QDir::setCurrent(run_.path());
        QDir().mkpath(QStringLiteral("log"));
        QDir().mkpath(QStringLiteral("Images"));
        QImage picture(150, 100, QImage::Format_RGB888);
        picture.fill(Qt::blue);
        picture.save(QStringLiteral("Images/METEO2.BMP"), "BMP");

        ProvideMainWindow(forms_);
        forms_.Provide<CaptionOnly>([](Forms&) { return new CaptionOnly; });
        forms_.ProvideAs<TrayForm, CaptionOnly>();
        form_ = &forms_.Get<Form1>();
    }

    Form1& form() { return *form_; }

private:
    [[noreturn]] static void Fail(const char* why) {
        std::fprintf(stderr, "the station can't be set up: %s\n", why);
        std::exit(1);
    }

    QTemporaryDir store_;
    QTemporaryDir run_;
    FixedClock clock_{QDateTime(QDate(2004, 11, 2), QTime(10, 5))};
    FixedRandom random_;
    NoBoxes boxes_;
    RunTimeGuard guard_{boxes_, [](int number) { NoBoxes::Crash("the end of the program", QString::number(number)); }};
    // Nothing prints and nothing quits here; the start form, whose icon this is, isn't loaded.
    SystemPrinter printer_;
    SystemProcessEnd processEnd_;
    DesktopNotificationArea notificationArea_;
    Services services_{clock_,        random_,  boxes_,      guard_,           {QStringLiteral("127.0.0.1"), 9}, {}, {},
                       store_.path(), printer_, processEnd_, notificationArea_};
    Forms forms_{services_};
    Form1* form_ = nullptr;
};

Station* station = nullptr;

// The station runs in a temporary folder of its own: the corpus folders and files named on the
// command line are made absolute first, so that the fuzzer still finds them (its flags are read
// after this function).
void AbsolutePaths(int argc, char** argv) {
    static std::vector<std::string> absolute;
    absolute.reserve(size_t(argc));
    for (int i = 1; i < argc; ++i) {
        if (argv[i][0] == '-') continue;
        absolute.push_back(std::filesystem::absolute(argv[i]).string());
        argv[i] = absolute.back().data();
    }
}

}  // namespace
}  // namespace skelda

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    skelda::AbsolutePaths(*argc, *argv);
    // The window is never shown: no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int qtArgc = 1;
    static char name[] = "fuzz_ingestion";
    static char* qtArgv[] = {name, nullptr};
    static QApplication application(qtArgc, qtArgv);
    // The fuzzer leaves by exit(): the window and the temporary folders go then, before the
    // application does.
    skelda::station = new skelda::Station;
    std::atexit([] { delete skelda::station; });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // The socket's bytes become the reply's text one character each, as the socket gives them.
    skelda::station->form().Cycle().IngererReponse(
        QString::fromLatin1(reinterpret_cast<const char*>(data), qsizetype(size)));
    return 0;
}
