// DecoderMetaf: one METAF text walked group by group, with a section keyword (Etape) naming what
// kind of group comes next.
//
// The decoder is loose on purpose: groups are recognised by a substring or a fixed character
// position, never by a grammar, and whatever it can't read keeps the field's initial value. Every
// assignment is one step of a skip-and-continue run: a number that can't be converted leaves its
// field alone and the next step goes on. Stored rows and the displays depend on these loose tests
// and on the phrases letter for letter (misspellings included), so neither is to be tidied.
//
// It runs on every reply of the poll and again for every chart readout, so it walks the text as
// views, converts through Fallible values (never exceptions), and allocates only the text fields
// of the result.
#include "Bulletin.h"

#include "Convert.h"
#include "ResumeNext.h"
#include "Text.h"

#include <QDate>
#include <QStringView>
#include <QVarLengthArray>

#include <array>
#include <cstring>
#include <initializer_list>
#include <limits>

namespace skelda {

namespace {

// The section keywords, in the order in which a pass compares them.
enum class Etape : uint8_t {
    Aeroport,
    Heure,
    Zefir,
    Visibilite,
    Rvr,
    TempsPresent,
    Nuage,
    Temperature,
    Pression,
    Vide,  // the empty keyword: the run ends at the start of the next pass
};

// Decoded instead of an empty text, so that an empty argument still gives a complete record.
constexpr QStringView kSample = u"LFTH 021000Z 22013KT 9999 FEW016 SCT230 22/06 Q1016 BECMG 31015G25KT=";

// --- Small text tools, cheap enough to run several times on every group ---------------------

// The exact comparisons of the decoder, written out: groups and codes are a few characters long,
// and a call into the library's general comparison for each of them costs more than the work.

// True when Text is Code, character for character.
bool Same(QStringView text, QStringView code) {
    if (text.size() != code.size()) return false;
    for (qsizetype i = 0; i < code.size(); ++i) {
        if (text[i] != code[i]) return false;
    }
    return true;
}

// True when Code stands in Group from position At (counted from 1): Mid(Group, At, Len(Code)) =
// Code, a piece cut short by the group's end being no match.
bool HasAt(QStringView group, qsizetype at, QStringView code) {
    return at - 1 + code.size() <= group.size() && Same(group.sliced(at - 1, code.size()), code);
}

// True when Code stands anywhere in Group (the "contains" test). Groups are a few characters
// long, so a plain scan beats any clever search.
bool Contains(QStringView group, QStringView code) {
    const qsizetype n = code.size();
    for (qsizetype i = 0; i + n <= group.size(); ++i) {
        if (group[i] != code[0]) continue;
        qsizetype k = 1;
        while (k < n && group[i + k] == code[k]) ++k;
        if (k == n) return true;
    }
    return false;
}

// The decimal text of a whole number with at least Width digits, a minus sign in front of a
// negative one, as Format(n, "00") writes it.
class Digits {
public:
    Digits(int value, int width) {
        std::array<char16_t, 12> reversed{};
        int count = 0;
        unsigned magnitude = value < 0 ? 0u - unsigned(value) : unsigned(value);
        do {
            reversed[count++] = char16_t(u'0' + magnitude % 10);
            magnitude /= 10;
        } while (magnitude != 0 || count < width);
        if (value < 0) text_[size_++] = u'-';
        while (count > 0) text_[size_++] = reversed[--count];
    }
    QStringView View() const { return QStringView(text_.data(), size_); }

private:
    std::array<char16_t, 13> text_{};
    qsizetype size_ = 0;
};

// The pieces joined into one new text, with one allocation of the exact size.
QString Joined(std::initializer_list<QStringView> pieces) {
    qsizetype size = 0;
    for (QStringView piece : pieces) size += piece.size();
    QString text(size, Qt::Uninitialized);
    QChar* out = text.data();
    for (QStringView piece : pieces) {
        if (piece.isEmpty()) continue;  // an empty view may have no data at all
        std::memcpy(static_cast<void*>(out), piece.data(), size_t(piece.size()) * sizeof(QChar));
        out += piece.size();
    }
    return text;
}

// Temps and Nuage grow phrase by phrase; they are gathered on the stack and become a text once,
// at the end of the run.
class Phrases {
public:
    void Append(QStringView phrase) { buffer_.append(phrase.constData(), phrase.size()); }
    QString Text() const { return buffer_.isEmpty() ? QString() : QString(buffer_.constData(), buffer_.size()); }

private:
    QVarLengthArray<QChar, 160> buffer_;
};

Fallible<int16_t> Negated(int16_t value) { return Mul16(value, -1); }

// The knots equivalent of a wind in metres per second, with the first product held in 16 bits.
Fallible<double> KnotsOf(int16_t metresPerSecond) {
    return Mul16(metresPerSecond, 3600).Then([](int16_t metresPerHour) {
        return Fallible<double>(metresPerHour / 1000.0 * 0.54);
    });
}

// A cloud height, written in hundreds of feet, in feet; 16 bits like every integer of the program.
Fallible<int16_t> FeetOf(int16_t hundreds) { return Mul16(hundreds, 100); }

// --- The state of one run ----------------------------------------------------------------------

struct Run {
    Run(QStringView text, Bulletin& bulletin, const Clock& clock) : b(bulletin), clock(clock) {
        // Every single blank separates: two blanks in a row give an empty group, and line breaks
        // are no separators, so they stay inside their group.
        qsizetype start = 0;
        for (qsizetype at = 0; at < text.size(); ++at) {
            if (text[at] == u' ') {
                groups.append(text.sliced(start, at - start));
                start = at + 1;
            }
        }
        groups.append(text.sliced(start));
    }

    QStringView Group() const { return groups[index]; }

    // Gives the current group to the next section: the index steps back, so that the end of
    // this pass looks at the group before and the next pass sees this group again.
    void HandOn(Etape next) {
        etape = next;
        --index;
    }

    Bulletin& b;
    const Clock& clock;
    ResumeNext step;  // its failure number is never looked at: the decoder reports nothing
    Phrases temps;
    Phrases nuage;
    QVarLengthArray<QStringView, 32> groups;
    int16_t index = 0;
    Etape etape = Etape::Aeroport;
};

// --- The sections -------------------------------------------------------------------------------

void Aeroport(Run& run, QStringView g) {
    run.b.Ida = g.toString();
    run.etape = Etape::Heure;
}

// The time as the message writes it, hour formatted "00", or a failure when the hour isn't a
// number. The letter behind the minutes (Z) is ignored.
Fallible<QString> HeureText(QStringView g) {
    const Fallible<int16_t> hour = CIntOf(Mid(g, 3, 2));
    if (!hour.Ok()) return Fallible<QString>::Failed(hour.Error());
    return Joined({Digits(hour.Value(), 2).View(), u":", Mid(g, 5, 2)});
}

void Heure(Run& run, QStringView g) {
    // Only the day comes from the message; month and year are today's. A message of the last day
    // of a month decoded on the first of the next is therefore dated in the new month: settled.
    // The calendar is worked out once for both.
    int year = 0;
    int month = 0;
    run.clock.Now().date().getDate(&year, &month, nullptr);
    run.b.DateReleve = Joined({Mid(g, 1, 2), u"/", Digits(month, 2).View(), u"/", Digits(year, 1).View()});
    run.step.Set(run.b.HeureReleve, HeureText(g));
    run.etape = Etape::Zefir;
}

// Forms 4 and 5 of the wind: a steady wind with no gust.
void SteadyWind(Run& run, QStringView g) {
    run.step.Set(run.b.ForceNoeuds, CIntOf(Mid(g, 4, 2)));
    run.b.OrientationDegre = Mid(g, 1, 3).toString();
    run.b.ForceRafale = 0;
}

// The five wind forms, tried in this order; the first that fits decides. Speeds are always
// characters 4-5, so a three-digit speed is misread: deliberate, the stored rows carry it.
void Zefir(Run& run, QStringView g) {
    Bulletin& b = run.b;
    if (HasAt(g, 4, u"V") && g.size() == 7) {
        // Shifting sector, 200V260: it closes the wind.
        run.step.Set(b.Secteur1, CIntOf(Mid(g, 1, 3)));
        run.step.Set(b.Secteur2, CIntOf(Mid(g, 5, 3)));
        run.etape = Etape::Visibilite;
    } else if (HasAt(g, 1, u"VRB")) {
        // Variable wind: the speed is kept negated to mark it as an upper bound. Any other length
        // than 7 (VRB03MPS) sets the flag and no speed.
        b.ZefirVariable = -1;
        if (g.size() == 7) run.step.Set(b.ForceNoeuds, CIntOf(Mid(g, 4, 2)).Then(Negated));
    } else if (Contains(g, u"G")) {
        // Gust wind. "G" anywhere is enough on purpose, so BCFG or TSGR in this place overwrite
        // the direction with their first three letters and their numbers fail.
        run.step.Set(b.ForceNoeuds, CIntOf(Mid(g, 4, 2)));
        b.OrientationDegre = Mid(g, 1, 3).toString();
        run.step.Set(b.ForceRafale, CIntOf(Mid(g, 7, 2)));
    } else if (HasAt(g, 6, u"KT")) {
        SteadyWind(run, g);
    } else if (HasAt(g, 6, u"MPS")) {
        // The knots equivalent is worked out with the first product in 16 bits, so it overflows
        // (and the step is dropped) from 10 m/s up, and nothing reads it: ForceNoeuds takes the
        // bare figure in metres per second. Deliberate; every reader of the field lives with it.
        double knots = 0;
        run.step.Set(knots, CIntOf(Mid(g, 4, 2)).Then(KnotsOf));
        SteadyWind(run, g);
    } else {
        run.HandOn(Etape::Visibilite);
        return;
    }
    // A wind form keeps the section, so that a shifting sector may follow.
}

void Visibilite(Run& run, QStringView g) {
    if (Same(g, u"CAVOK")) {
        // The misspelled "then" is the stored text. CAVOK jumps over runway, weather and sky.
        run.b.Visibilite = QStringLiteral("Visibility greater then 10 Km");
        run.etape = Etape::Temperature;
    } else if (Contains(g, u"SM")) {
        // Only two characters are kept, so 3SM gives "3S Statut Miles": settled.
        run.b.Visibilite = Joined({Mid(g, 1, 2), u" Statut Miles"});
        run.etape = Etape::Rvr;
    } else if (IsNumeric(g)) {
        // "Less then" for every figure, 9999 included: the stored phrase, kept as it is.
        run.b.Visibilite = Joined({u"Visibility Less then ", g, u" Meter"});
        run.etape = Etape::Rvr;
    } else {
        run.HandOn(Etape::Rvr);
    }
}

// Runway visual range is recognised only to be skipped, and only one group of it.
void Rvr(Run& run, QStringView g) {
    if (HasAt(g, 1, u"R") && g.size() > 3 && IsNumeric(Mid(g, 2, 2)))
        run.etape = Etape::TempsPresent;
    else
        run.HandOn(Etape::TempsPresent);
}

struct WeatherCode {
    QStringView code;
    bool equals;  // the group must be exactly the code; otherwise the code may stand anywhere
    QStringView phrase;
    bool intensity;  // an intensity word follows the phrase
};

// Tried strictly in this order, the first that fits decides. SHRA and SHSN can never be reached
// (RA and SN come first), and FZFG is fog: the order is the behaviour, so they stay as they are.
constexpr std::array<WeatherCode, 12> kWeather{{
    {u"SN", false, u" Snow", true},
    {u"RA", false, u" Rain", true},
    {u"FG", false, u" Fog", true},
    {u"BR", false, u" Mist", true},
    {u"GR", false, u" Hail", true},
    {u"DZ", false, u" Drizzle", true},
    {u"SHRA", false, u" Rain Showers", true},
    {u"SH", false, u" Shower", true},
    {u"TS", false, u" Thunderstorm", true},
    {u"FZ", true, u" Neige fondue", false},
    {u"SHSN", false, u" Chute de Neige", true},
    {u"VV///", true, u" Fog", false},
}};

void TempsPresent(Run& run, QStringView g) {
    for (const WeatherCode& w : kWeather) {
        if (w.equals ? Same(g, w.code) : Contains(g, w.code)) {
            run.temps.Append(w.phrase);
            if (w.intensity) {
                // No sign counts as moderate, even for codes that never carry an intensity (FG).
                run.temps.Append(HasAt(g, 1, u"+") ? u" Heavy" : HasAt(g, 1, u"-") ? u" Light" : u" Moderate");
            }
            return;
        }
    }
    run.HandOn(Etape::Nuage);
}

// One sky layer: the phrase, the height in feet and " feets.", appended in one step. The height
// is worked out in 16 bits, so a layer at 328 hundred feet or above overflows and, like a height
// of slashes, is dropped whole: deliberate, the group still counts as read.
void Couche(Run& run, QStringView phrase, QStringView g) {
    run.step([&] {
        const Fallible<int16_t> feet = CIntOf(Mid(g, 4, 3)).Then(FeetOf);
        if (feet.Ok()) {
            run.nuage.Append(phrase);
            run.nuage.Append(Digits(feet.Value(), 1).View());
            run.nuage.Append(u" feets.");
        }
        return feet.Error();
    });
}

void Nuage(Run& run, QStringView g) {
    // The blanks are part of the phrases: one before the height in the first two layers, two in
    // the last two. "covererd" and "feets" are the stored words.
    if (Same(g, u"SKC") || Same(g, u"NSC") || Same(g, u"CLR") || Same(g, u"CAVOK")) {
        run.nuage.Append(u" Clear Sky");
    } else if (HasAt(g, 1, u"OVC")) {
        Couche(run, u" Sky covererd at ", g);
    } else if (HasAt(g, 1, u"SCT")) {
        Couche(run, u" Scattered clouds at ", g);
    } else if (HasAt(g, 1, u"BKN")) {
        Couche(run, u" Broken clouds at  ", g);
    } else if (HasAt(g, 1, u"FEW")) {
        Couche(run, u" A few clouds at  ", g);
    } else {
        run.HandOn(Etape::Temperature);  // VV with digits too: it isn't a sky form here
    }
}

// Only the air temperature; the dew point behind "/" is ignored. The group is used up whether
// its number could be read or not.
void Temperature(Run& run, QStringView g) {
    if (HasAt(g, 1, u"M"))
        run.step.Set(run.b.Temperature, CIntOf(Mid(g, 2, 2)).Then(Negated));
    else
        run.step.Set(run.b.Temperature, CIntOf(Mid(g, 1, 2)));
    run.etape = Etape::Pression;
}

void Pression(Run& run, QStringView g) {
    if (Contains(g, u"A")) {
        // Inches of mercury. The factor 0.3325 is the program's own and is used as it stands, so
        // A2992 gives 995. Four fixed characters are read, so a glued "=" does no harm here.
        run.step.Set(run.b.Pression, CDblOf(Mid(g, 2, 4)).Then([](double inches) { return CIntOf(inches * 0.3325); }));
    } else {
        // Everything from character 2 to the end: Q1016= keeps its "=" and fails, deliberately.
        run.step.Set(run.b.Pression, CIntOf(Mid(g, 2)));
    }
    run.etape = Etape::Vide;
}

// The section of each keyword but the empty one, in the order of Etape.
constexpr void (*Sections[])(Run&, QStringView) = {Aeroport,     Heure, Zefir,       Visibilite, Rvr,
                                                   TempsPresent, Nuage, Temperature, Pression};
static_assert(std::size(Sections) == size_t(Etape::Vide));

}  // namespace

Bulletin DecoderMetaf(const QString& Texte, const Clock& clock) {
    Bulletin b;
    Run run(Texte.isEmpty() ? kSample : QStringView(Texte), b, clock);

    for (;;) {
        // The empty keyword ends the run at once: the current group isn't looked at.
        if (run.etape == Etape::Vide) break;
        // One section a pass, chosen by the keyword, in the keywords' order.
        Sections[size_t(run.etape)](run, run.Group());

        // End of the pass. The last character of an empty group is at position 0, where the test
        // can't be made, and that failed test counts as met: an empty group ends the run.
        if (const QStringView g = run.Group(); g.isEmpty() || g.back() == u'=') break;

        // The index is a 16-bit integer. Where it can't grow any more the run ends, rather than
        // go over the same group again and again.
        if (run.index == std::numeric_limits<int16_t>::max()) break;
        ++run.index;
        if (run.index >= run.groups.size()) break;
    }
    b.Temps = run.temps.Text();
    b.Nuage = run.nuage.Text();
    return b;
}

}  // namespace skelda
