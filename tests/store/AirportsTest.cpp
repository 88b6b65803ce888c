// The airport lookup and the filling of airport lists, on real database files.
#include "Airports.h"

#include "Controls.h"
#include "Dao.h"
#include "Failure.h"
#include "Failures.h"
#include "GuiApplication.h"
#include "TestDatabase.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace skelda;
using skelda::test::Airport;
using skelda::test::TestDatabase;

namespace {

// A real list box, filled through the adapter, that remembers the line selected at each Click.
class AirportList : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        list = std::make_unique<ListBox>();
        QObject::connect(list.get(), &ListBox::Click, [this] { clicks.append(list->ListIndex()); });
    }

    void Fill(const TestDatabase& db) {
        ListeAdapter<ListBox> liste(*list);
        ChargerAeroports(liste, table, db.Path());
    }

    QStringList Lines() const {
        QStringList lines;
        for (int i = 0; i < list->ListCount(); ++i) lines.append(list->List(i));
        return lines;
    }

    std::unique_ptr<ListBox> list;
    TableIDAType table;
    QList<int> clicks;
};

// So many active airports, named so that their order by city is their order of creation.
QList<SeedAirport> ManyAirports(int count) {
    QList<SeedAirport> airports;
    for (int i = 0; i < count; ++i) {
        const QString n = QStringLiteral("%1").arg(i, 3, 10, QLatin1Char('0'));
        airports.append(
            Airport(QStringLiteral("K") + n, QStringLiteral("Ville ") + n, QStringLiteral("Aéroport ") + n));
    }
    return airports;
}

}  // namespace

// ---- TrouverAeroport

TEST(TrouverAeroport, AKnownCodeGivesTheAirportsNumber) {
    TestDatabase db({Airport("LFPG", "Paris", "Charles de Gaulle"), Airport("LFTH", "Toulouse", "Francazal")});
    EXPECT_EQ(TrouverAeroport(QStringLiteral("LFTH"), db.Path()), 2);
    EXPECT_EQ(TrouverAeroport(QStringLiteral("LFPG"), db.Path()), 1);
}

TEST(TrouverAeroport, AnUnknownCodeGivesZero) {
    TestDatabase db({Airport("LFPG", "Paris", "Charles de Gaulle")});
    EXPECT_EQ(TrouverAeroport(QStringLiteral("KJFK"), db.Path()), 0);
    EXPECT_EQ(TrouverAeroport(QString(), db.Path()), 0);
}

TEST(TrouverAeroport, AnInactiveAirportIsFoundAllTheSame) {
    TestDatabase db({Airport("LFPG", "Paris", "Charles de Gaulle", false)});
    EXPECT_EQ(TrouverAeroport(QStringLiteral("LFPG"), db.Path()), 1);
}

TEST(TrouverAeroport, ACodeWithAnApostropheBreaksTheCriteriaWith3077) {
    TestDatabase db({Airport("LFPG", "Paris", "Charles de Gaulle")});
    try {
        TrouverAeroport(QStringLiteral("O'HA"), db.Path());
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), DaoSyntaxInCriteria);
    }
}

TEST(TrouverAeroport, ACodeThatWouldBeSqlReachesNoSql) {
    TestDatabase db({Airport("LFPG", "Paris", "Charles de Gaulle")});
    const QString codes[] = {QStringLiteral("X' OR '1'='1"), QStringLiteral("X'; DROP TABLE Aéroports; --")};
    for (const QString& code : codes) {
        try {
            TrouverAeroport(code, db.Path());
            ADD_FAILURE() << "no failure for " << code.toStdString();
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.Number(), DaoSyntaxInCriteria) << code.toStdString();
        }
    }
    EXPECT_EQ(db.Count(QStringLiteral("Aéroports")), 1);
}

TEST(TrouverAeroport, AMissingDatabaseFileReachesTheCaller) {
    TestDatabase db;
    try {
        TrouverAeroport(QStringLiteral("LFPG"), db.Folder() + QStringLiteral("/nothing.mdb"));
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), DaoFileNotFound);
    }
}

// ---- ChargerAeroports

TEST_F(AirportList, LinesAreTheMarkTheCityADashAndTheAirportInOrderOfCity) {
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal", true, false, QStringLiteral("07")),
                     Airport("LFPG", "Paris", "Charles de Gaulle", true, false, QStringLiteral("75")),
                     Airport("LFLL", "Lyon", "Saint-Exupéry", true, false, QStringLiteral("69"))});
    Fill(db);
    EXPECT_EQ(Lines(),
              (QStringList{QStringLiteral(" * Lyon - Saint-Exupéry"), QStringLiteral(" * Paris - Charles de Gaulle"),
                           QStringLiteral(" * Toulouse - Francazal")}));
}

TEST_F(AirportList, NullAndEmptyForecastCodesGiveThreeBlanks) {
    TestDatabase db({Airport("LFAA", "Amiens", "Glisy", true, false, std::nullopt),
                     Airport("LFBB", "Bordeaux", "Mérignac", true, false, QString()),
                     Airport("LFCC", "Cahors", "Lalbenque", true, false, QStringLiteral("46"))});
    // The seed stores an empty forecast code as Null; the delivered file may hold empty texts.
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET codeforecast = '' WHERE IDA = 'LFBB'")));
    Fill(db);
    EXPECT_EQ(Lines(), (QStringList{QStringLiteral("   Amiens - Glisy"), QStringLiteral("   Bordeaux - Mérignac"),
                                    QStringLiteral(" * Cahors - Lalbenque")}));
}

TEST_F(AirportList, EachLineCarriesItsNumberAndTableIDAItsCode) {
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal"), Airport("LFPG", "Paris", "Charles de Gaulle"),
                     Airport("LFLL", "Lyon", "Saint-Exupéry")});
    Fill(db);
    ASSERT_EQ(list->ListCount(), 3);
    EXPECT_EQ(list->ItemData(0), 3);
    EXPECT_EQ(list->ItemData(1), 2);
    EXPECT_EQ(list->ItemData(2), 1);
    EXPECT_EQ(table[0], Variant(QStringLiteral("LFLL")));
    EXPECT_EQ(table[1], Variant(QStringLiteral("LFPG")));
    EXPECT_EQ(table[2], Variant(QStringLiteral("LFTH")));
}

TEST_F(AirportList, InactiveAirportsAreLeftOut) {
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal"), Airport("LFPG", "Paris", "Charles de Gaulle", false)});
    Fill(db);
    EXPECT_EQ(Lines(), QStringList{QStringLiteral("   Toulouse - Francazal")});
    EXPECT_EQ(table[0], Variant(QStringLiteral("LFTH")));
}

TEST_F(AirportList, ThePreferredAirportIsSelectedThroughTheTagAndClickIsRaised) {
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal"),
                     Airport("LFPG", "Paris", "Charles de Gaulle", true, true),
                     Airport("LFLL", "Lyon", "Saint-Exupéry")});
    Fill(db);
    EXPECT_EQ(list->Tag, QStringLiteral("1"));
    EXPECT_EQ(list->ListIndex(), 1);
    EXPECT_EQ(clicks, QList<int>{1});
}

TEST_F(AirportList, WithNoPreferredAirportTheFirstLineIsSelected) {
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal"), Airport("LFPG", "Paris", "Charles de Gaulle")});
    Fill(db);
    EXPECT_EQ(list->Tag, QStringLiteral("0"));
    EXPECT_EQ(list->ListIndex(), 0);
    EXPECT_EQ(clicks, QList<int>{0});
}

TEST_F(AirportList, APreferredAirportThatIsNotActiveLeavesTheTagAtZero) {
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal"),
                     Airport("LFPG", "Paris", "Charles de Gaulle", false, true),
                     Airport("LFLL", "Lyon", "Saint-Exupéry")});
    Fill(db);
    EXPECT_EQ(list->Tag, QStringLiteral("0"));
    EXPECT_EQ(list->ListIndex(), 0);
    EXPECT_EQ(list->Text(), QStringLiteral("   Lyon - Saint-Exupéry"));
}

TEST_F(AirportList, OfSeveralPreferredAirportsTheLastByCityWins) {
    TestDatabase db(
        {Airport("LFTH", "Toulouse", "Francazal", true, true), Airport("LFPG", "Paris", "Charles de Gaulle"),
         Airport("LFLL", "Lyon", "Saint-Exupéry", true, true), Airport("LFBO", "Bordeaux", "Mérignac", true, true)});
    Fill(db);
    EXPECT_EQ(list->Tag, QStringLiteral("3"));
    EXPECT_EQ(list->Text(), QStringLiteral("   Toulouse - Francazal"));
}

TEST_F(AirportList, WithNoActiveAirportTheListStaysEmptyAndRefusesItsLineZero) {
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal", false, true)});
    list->AddItem(QStringLiteral("an old line"));
    list->Tag = QStringLiteral("5");
    EXPECT_EQ(test::ErrorOf([&] { Fill(db); }), InvalidPropertyValue);
    EXPECT_EQ(list->ListCount(), 0);
    EXPECT_EQ(list->Tag, QStringLiteral("0"));
    EXPECT_EQ(list->ListIndex(), -1);
    EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(AirportList, WithNoAirportAtAllTheListIsEmptyAndRefusesItsLineZero) {
    TestDatabase db;
    EXPECT_EQ(test::ErrorOf([&] { Fill(db); }), InvalidPropertyValue);
    EXPECT_EQ(list->ListCount(), 0);
    EXPECT_EQ(list->ListIndex(), -1);
}

TEST_F(AirportList, EveryCallStartsTheListAfresh) {
    TestDatabase db(
        {Airport("LFTH", "Toulouse", "Francazal"), Airport("LFPG", "Paris", "Charles de Gaulle", true, true)});
    Fill(db);
    ASSERT_TRUE(db.Exec(QStringLiteral("UPDATE \"Aéroports\" SET préféré = 0, activé = 0 WHERE IDA = 'LFPG'")));
    Fill(db);
    EXPECT_EQ(Lines(), QStringList{QStringLiteral("   Toulouse - Francazal")});
    EXPECT_EQ(list->Tag, QStringLiteral("0"));
    EXPECT_EQ(list->ListIndex(), 0);
}

TEST_F(AirportList, TableIDAEntriesBehindTheLastLineStayAsTheyWere) {
    table.fill(Variant(QStringLiteral("OLD")));
    TestDatabase db({Airport("LFTH", "Toulouse", "Francazal"), Airport("LFPG", "Paris", "Charles de Gaulle")});
    Fill(db);
    EXPECT_EQ(table[0], Variant(QStringLiteral("LFPG")));
    EXPECT_EQ(table[1], Variant(QStringLiteral("LFTH")));
    for (std::size_t i = 2; i < table.size(); ++i) EXPECT_EQ(table[i], Variant(QStringLiteral("OLD"))) << i;
}

TEST_F(AirportList, ExactlyOneHundredAndOneActiveAirportsFillTheList) {
    TestDatabase db(ManyAirports(101));
    Fill(db);
    EXPECT_EQ(list->ListCount(), 101);
    EXPECT_EQ(table[100], Variant(QStringLiteral("K100")));
    EXPECT_EQ(list->ItemData(100), 101);
    EXPECT_EQ(list->ListIndex(), 0);
}

TEST_F(AirportList, TheHundredAndSecondActiveAirportIsSubscriptOutOfRange) {
    TestDatabase db(ManyAirports(102));
    try {
        Fill(db);
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), SubscriptOutOfRange);
    }
    // The failure comes at the TableIDA step: the line and its number are in the list already,
    // and the selection at the end never happens.
    EXPECT_EQ(list->ListCount(), 102);
    EXPECT_EQ(list->List(101), QStringLiteral("   Ville 101 - Aéroport 101"));
    EXPECT_EQ(list->ItemData(101), 102);
    EXPECT_EQ(table[100], Variant(QStringLiteral("K100")));
    EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(AirportList, AMissingDatabaseFileReachesTheCallerWithTheListCleared) {
    TestDatabase db;
    list->AddItem(QStringLiteral("an old line"));
    try {
        ListeAdapter<ListBox> liste(*list);
        ChargerAeroports(liste, table, db.Folder() + QStringLiteral("/nothing.mdb"));
        FAIL() << "no failure";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number(), DaoFileNotFound);
    }
    EXPECT_EQ(list->ListCount(), 0);
}
