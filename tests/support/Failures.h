// Reading the failure of a statement in a test: its number and its words, or 0 and "" when the
// statement went through.
#pragma once

#include "Failure.h"

#include <QString>

namespace skelda::test {

template <class F>
int ErrorOf(F&& statement) {
    try {
        statement();
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}

template <class F>
QString DescriptionOf(F&& statement) {
    try {
        statement();
    } catch (const RuntimeError& e) {
        return e.Description();
    }
    return {};
}

}  // namespace skelda::test
