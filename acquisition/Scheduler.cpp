// The heartbeat of Skelda: the one-second tick of T, the start of a poll, and the time-out of an
// unanswered request.
#include <QCoreApplication>
#include <cmath>
#include <utility>

#include "Convert.h"
#include "Forecast.h"
#include "Forms.h"
#include "PollCycle.h"
#include "Regional.h"
#include "ResumeNext.h"
#include "Text.h"

namespace skelda {

namespace {

// The local clock's parts, as the tick shows them.
struct HeureLocale {
    QString hh;  // the hour: as the clock wrote it, or a number once it was changed
    QString mm;
    QString ss;
};

// Splits the clock's text by hand, as "3:07:09 PM" or "15:07:09", without any date type, so
// that the labels show the parts as the system wrote them: an hour left alone keeps its leading
// zero, an hour that was changed is a number and loses it. A clock text without ":" fails (5).
HeureLocale DecouperHeure(const QString& Heure) {
    HeureLocale h;
    const qsizetype finHeure = InStr(Heure, u":");
    h.hh = Left(Heure, finHeure - 1).toString();
    // A 12-hour clock: the afternoon's hours move up by 12. Midnight's "12 AM" isn't below 12 and
    // stays 12, by intent: the clock then reads 12:30 where a 24-hour clock would read 0:30.
    if (CDbl(h.hh) < 12 && InStr(Heure, u"PM", Qt::CaseInsensitive) > 0) h.hh = NumberText(CDbl(h.hh) + 12);
    if (CDbl(h.hh) >= 24) h.hh = NumberText(CDbl(h.hh) - 24);

    const QString reste = Mid(Heure, finHeure + 1).toString();
    const qsizetype finMinutes = InStr(reste, u":");
    h.mm = Left(reste, finMinutes - 1).toString();
    // The seconds are as long as the minutes were, which drops a trailing " PM" or " AM".
    h.ss = Left(Mid(reste, finMinutes + 1), finMinutes - 1).toString();
    return h;
}

// The UTC hour of the Zulu clock. The 5 is a fixed number, by design: neither the machine's time
// zone nor the airport's. An hour of 12 at midnight on a 12-hour clock gives 17.
QString HeureZulu(const QString& hh) {
    double heure = CDbl(hh) + 5;
    if (heure >= 24) heure -= 24;
    return NumberText(heure);
}

// The statements of one tick: run plainly, so that a failure reaches the caller, or, once the
// tick is protected, each through the one ResumeNext, so that a failing one is skipped.
class Instructions {
public:
    void Proteger() { protege_ = true; }
    template <class F>
    void operator()(F&& statement) {
        if (protege_)
            step_(std::forward<F>(statement));
        else
            statement();
    }

private:
    bool protege_ = false;
    ResumeNext step_;
};

void PollSuivant(PollCycle& cycle, ListBox& List1, Instructions& run) {
    // An empty List1 has no entry to select: the poll is left out and the countdown starts
    // again, so that a run with no active airport simply waits.
    if (List1.ListCount() == 0) {
        cycle.SecondesAttente = 0;
        return;
    }
    run([&] { cycle.IndexReleve = Add16(cycle.IndexReleve, 1).Value(); });
    if (cycle.IndexReleve > List1.ListCount() - 1) cycle.IndexReleve = 0;
    // Selecting the entry redraws its chart through the list's Click, as a user's click does.
    run([&] { List1.SetListIndex(cycle.IndexReleve); });
    run([&] { cycle.Connect(); });
    cycle.SecondesAttente = 0;
}

}  // namespace

void PollCycle::T_Timer() {
    // Read the system's time as text and split it by hand into hours, minutes and seconds.
    const HeureLocale h = DecouperHeure(forms_.services().clock.TimeText());
    // The local clock, and the Zulu clock a fixed 5 hours ahead.
    f_.SetHorloges(h.hh + u':' + h.mm + u':' + h.ss, HeureZulu(h.hh) + u':' + h.mm + u':' + h.ss);

    // The first tick after the window was asked for runs the rest of itself in the
    // skip-and-continue mode; no other tick has that protection.
    Instructions run;
    if (f_.TagFenetre().compare(QStringLiteral("VISIBLE"), Qt::CaseInsensitive) == 0) {
        f_.SetTag(QStringLiteral("VU"));
        run.Proteger();
    }

    // Count the tick towards the next poll and towards the hour.
    run([&] { SecondesAttente = Add16(SecondesAttente, 1).Value(); });
    run([&] { SecondesHeure = Add16(SecondesHeure, 1).Value(); });

    // The countdown in the caption. It counts 9 to 0 over the first ten ticks, while the poll
    // comes on the eleventh (the test below is "above 10"): on that tick the caption shows -1 for
    // an instant and Connect replaces it at once with its own.
    run([&] {
        f_.SetCaption(f_.ListeAeroports().Text() + QStringLiteral(" - ") + QString::number(10 - SecondesAttente) +
                      QStringLiteral(" secondes..."));
    });

    // Refill the list of dates once an hour, on the 3601st tick, so that a day that began during
    // the run enters it. Selecting the newest date also takes a user looking at an older day back
    // to today, and redraws the chart through the combo's Click.
    if (SecondesHeure > 3600) {
        run([&] { SecondesHeure = 0; });
        run([&] { f_.Base() = OpenDatabase(f_.DatabasePath()); });
        run([&] { f_.RemplirDates(); });
        run([&] { f_.ChoisirDateRecente(); });
    }

    // Poll the next airport of the list every eleventh tick, wrapping to the first. The counter
    // is reset only after Connect has returned.
    if (SecondesAttente > 10) PollSuivant(*this, f_.ListeAeroports(), run);
}

void PollCycle::Connect() {
    Services& services = forms_.services();
    // Say so in the caption, and clear the last observation's text from the window.
    f_.SetCaption(QStringLiteral("Connection in progress..."));
    for (ChampReleve champ :
         {ChampReleve::Date, ChampReleve::Vitesse, ChampReleve::Direction, ChampReleve::Secteur, ChampReleve::Force})
        f_.SetReleve(champ, QString());
    // Forget the last reply.
    ReponseBrute.clear();
    // Close the socket. An exchange still running is abandoned here without a word: its reply,
    // if any comes, has no socket left to arrive on. This is the whole treatment of overlapping
    // polls.
    W.Close();
    // Let pending events run once.
    QCoreApplication::processEvents();
    // A local port from 91 to 100, drawn after reseeding; the only use of the random draw.
    services.random.Randomize();
    const double tirage = services.random.Rnd();
    W.SetLocalPort(int(std::floor(tirage * 10)) + 91);
    // The observation server.
    W.SetRemoteHost(services.observationServer.host);
    W.SetRemotePort(services.observationServer.port);
    // Connect; W_Connect takes over when the connection is made.
    W.Connect();
    // The news, at the first poll of the run. A failed fetch (no network, an unknown host, a
    // refused connection, a time-out) is lost silently with this poll, as every network failure
    // of the cycle is: the news flag stays empty and the next poll tries again.
    ResumeNext nouvelles;
    nouvelles([&] { AfficherNouvelles(QString(), forms_); });
}

void PollCycle::TimerWinsock_Timer() {
    // Silent: no log, no retry. List1, which the exchange disabled, stays disabled until a later
    // reply enables it again.
    TimerWinsock.SetEnabled(false);
    W.Close();
}

}  // namespace skelda
