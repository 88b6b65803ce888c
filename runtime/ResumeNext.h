// The mode in which a failed statement is skipped and the next one runs.
//
// Some procedures of Skelda (the decoder, the hand entry, the ingestion of a reply, the month
// view, the quit) are written as lists of statements where one failure must not stop the ones
// behind it, and where the number of the last failure is looked at once, at the end. Each
// statement of such a procedure goes through one ResumeNext, so that every step stays visibly one
// step:
//
//     ResumeNext step;
//     step.Set(b.ForceNoeuds, CIntOf(Mid(g, 4, 2)));      // a fallible value: no exception at all
//     step([&] { label2.setText(...); });                // anything that may throw RuntimeError
//     if (step.Number() == 3022) ...
//
// A failure keeps its number and description until a later failure replaces them; nothing
// clears them but Clear().
#pragma once

#include "Failure.h"

#include <type_traits>

namespace skelda {

class ResumeNext {
public:
    // Runs one statement. The statement may throw RuntimeError, or return a Fallible<T> or an
    // error number (0 for success); a failure is kept and the call returns normally.
    template <class F>
    ResumeNext& operator()(F&& statement) {
        try {
            using R = std::invoke_result_t<F>;
            if constexpr (std::is_void_v<R>) {
                statement();
            } else if constexpr (std::is_integral_v<R>) {
                Note(statement());
            } else {
                Note(statement().Error());
            }
        } catch (const RuntimeError& e) {
            Note(e.Number(), e.Description());
        }
        return *this;
    }

    // One assignment statement: the field takes the value unless it failed, and then it keeps
    // what it had.
    template <class T, class U>
    ResumeNext& Set(T& field, const Fallible<U>& value) {
        if (value.Ok())
            field = value.Value();
        else
            Note(value.Error());
        return *this;
    }

    int Number() const { return number_; }
    QString Description() const;  // the run time's words for the last failure, empty if none
    void Clear() {
        number_ = NoError;
        description_.clear();
    }

private:
    void Note(int number) {
        if (number != NoError) {
            number_ = number;
            description_.clear();
        }
    }
    void Note(int number, const QString& description) {
        number_ = number;
        description_ = description;
    }

    int number_ = NoError;
    QString description_;
};

}  // namespace skelda
