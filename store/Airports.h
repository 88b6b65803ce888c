// The airport lookup and the filling of airport lists, the bridge between table Aéroports and
// the rest of Skelda.
#pragma once

#include "Variant.h"

#include <QString>

#include <array>
#include <cstdint>

namespace skelda {

// Station codes by line of the list filled last: 101 entries, indices 0 to 100. Its bound is the
// real limit on active airports.
using TableIDAType = std::array<Variant, 101>;

// Any list control, reached through the members that the list filling uses, and only those.
class ListeControle {
public:
    virtual ~ListeControle() = default;
    virtual void Clear() = 0;
    virtual QString Tag() const = 0;
    virtual void SetTag(const QString& tag) = 0;
    virtual void AddItem(const QString& text) = 0;
    virtual void SetItemData(int index, int32_t data) = 0;
    virtual void SetListIndex(int index) = 0;
};

// The adapter of any control that has those members under their names (ListBox, ComboBox...).
template <class L>
class ListeAdapter : public ListeControle {
public:
    explicit ListeAdapter(L& list) : list_(list) {}
    void Clear() override { list_.Clear(); }
    QString Tag() const override { return list_.Tag; }
    void SetTag(const QString& tag) override { list_.Tag = tag; }
    void AddItem(const QString& text) override { list_.AddItem(text); }
    void SetItemData(int index, int32_t data) override { list_.SetItemData(index, data); }
    // Line 0 of an empty list is refused (380) like any line that doesn't exist.
    void SetListIndex(int index) override { list_.SetListIndex(index); }

private:
    L& list_;
};

// The idx of the airport whose station code is Code, or 0 when there is none. The code goes into
// the search criteria as it stands: a code with an apostrophe breaks them and fails (3077).
// Database failures are not handled: they reach the caller.
int32_t TrouverAeroport(const QString& Code, const QString& databasePath);

// Fills Liste with the active airports, by city: a mark (" * " with a forecast code, three blanks
// without), the city, " - ", the airport's name; each line's ItemData is the airport's idx, and
// TableIDA at the line's index gets its code. The list's Tag ends on the line of the preferred
// airport (or 0), and ListIndex is set to it, which raises the list's Click. With no active
// airport the list stays empty, and selecting its line 0 all the same fails with "Invalid
// property value" (380): no active airport stops whoever fills a list, the start of the program
// first. A 102nd active airport is a "Subscript out of range" (9), raised once its line is in the
// list; database failures reach the caller.
void ChargerAeroports(ListeControle& Liste, TableIDAType& TableIDA, const QString& databasePath);

}  // namespace skelda
