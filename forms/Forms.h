// Where Skelda's forms reach each other: the single shared instance of each form, created at its
// first touch and gone when it unloads.
//
// A form asks another for a service through the narrow interface of that service, one of the
// small classes of this folder: Get<TrayForm>() loads the tray's form if it isn't loaded and
// gives its caption and its menu, Widget<PollingForm>() gives the main window as a window. The
// form itself, its controls and its procedures, belongs to its own library: only that library
// and the code that wires the forms together (the program in app/, its tests and benchmarks)
// may name it here, and the compiler refuses Get<Form1>() anywhere else. How each form is made
// is told once, through Provide<F>() and ProvideAs<Interface, F>().
#pragma once

#include "Module1.h"
#include "Services.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>

// The library whose code is being compiled: each of Skelda's libraries is built with its own
// name here; the program, its tests and its benchmarks, which wire the forms together, with none.
#ifndef SKELDA_LIBRARY
#define SKELDA_LIBRARY ""
#endif

namespace skelda {

// Whether the code being compiled may name F to Forms. An interface (any class that isn't a Qt
// object) may be named anywhere. A form (a widget) declares the library it belongs to in
// `static constexpr std::string_view Library`, and only that library, or the wiring, names it.
template <class F>
constexpr bool Reachable() {
    if constexpr (std::is_base_of_v<QObject, F> && !std::string_view(SKELDA_LIBRARY).empty())
        return F::Library == std::string_view(SKELDA_LIBRARY);
    else
        return true;
}

class Forms {
public:
    explicit Forms(Services& services) : services_(services) {}
    ~Forms();
    Forms(const Forms&) = delete;
    Forms& operator=(const Forms&) = delete;

    Services& services() const { return services_; }
    // The values shared beside the forms (station codes, wind colours, news flag).
    Module1& module1() { return module1_; }

    // How form F is made. F must be complete here; the maker gets this place to hand on.
    template <class F>
    void Provide(std::function<F*(Forms&)> make) {
        CheckReach<F>();
        slots_[Key<F>()].make = [make = std::move(make)](Forms& forms) -> std::pair<void*, QWidget*> {
            F* form = make(forms);
            return {form, form};
        };
    }

    // What I (an interface that form F implements) is asked for goes to the shared instance of F:
    // Get<I>() loads F if it isn't loaded. So a form can ask another for a narrow service
    // without knowing its type.
    template <class I, class F>
    void ProvideAs() {
        CheckReach<F>();
        slots_[Key<I>()].make = [](Forms& forms) -> std::pair<void*, QWidget*> {
            F& form = forms.Get<F>();
            return {static_cast<I*>(&form), &form};
        };
    }

    // The shared instance of F, loaded now if it isn't.
    template <class F>
    F& Get() {
        CheckReach<F>();
        return *static_cast<F*>(Touch(Key<F>()).form);
    }

    // The window of F, loaded now if it isn't.
    template <class F>
    QWidget& Widget() {
        CheckReach<F>();
        return *Touch(Key<F>()).widget;
    }

    // Whether F is loaded, without loading it.
    template <class F>
    bool Loaded() const {
        CheckReach<F>();
        auto it = slots_.find(Key<F>());
        return it != slots_.end() && !it->second.widget.isNull();
    }

    // Unloads F: the window goes, and the next touch makes a fresh one.
    template <class F>
    void Unload() {
        CheckReach<F>();
        auto it = slots_.find(Key<F>());
        if (it != slots_.end()) Drop(it->second);
    }

    // Unloads F from inside one of its own handlers. F leaves at once (Loaded<F>() is false and
    // the next touch makes a fresh one) and its window hides, but the window is deleted only when
    // control is back in the event loop, since the handler that asked still runs on it.
    template <class F>
    void UnloadLater() {
        CheckReach<F>();
        auto it = slots_.find(Key<F>());
        if (it != slots_.end()) DropLater(it->second.widget.data());
    }

private:
    template <class F>
    static constexpr void CheckReach() {
        static_assert(Reachable<F>(), "another library's form is reached through its interface of forms/ only");
    }

    struct Slot {
        std::function<std::pair<void*, QWidget*>(Forms&)> make;
        void* form = nullptr;
        QPointer<QWidget> widget;
    };

    template <class F>
    static const void* Key() {
        static const char key = 0;
        return &key;
    }

    Slot& Touch(const void* key);
    static void Drop(Slot& slot);
    // Every slot that holds this window (F's own, and those of the interfaces F serves) lets it go.
    void DropLater(QWidget* widget);

    Services& services_;
    Module1 module1_;
    std::unordered_map<const void*, Slot> slots_;
};

}  // namespace skelda
