// Where Skelda's forms reach each other: the single shared instance of each form, created at its
// first touch and gone when it unloads.
//
// A form asks for another by its type: forms.Get<Form1>() loads Form1 if it isn't loaded and
// gives it. A form that only needs a service of another (the tray's caption, its menu) asks for
// the narrow interface of that service, such as Get<TrayForm>(), which doesn't need the other
// form's header. How each form is made is told once, by the program (and by each test), through
// Provide<F>() and ProvideAs<Interface, F>().
#pragma once

#include "Module1.h"
#include "Services.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <unordered_map>
#include <utility>

namespace skelda {

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
        slots_[Key<I>()].make = [](Forms& forms) -> std::pair<void*, QWidget*> {
            F& form = forms.Get<F>();
            return {static_cast<I*>(&form), &form};
        };
    }

    // The shared instance of F, loaded now if it isn't.
    template <class F>
    F& Get() {
        return *static_cast<F*>(Touch(Key<F>()).form);
    }

    // The window of F, loaded now if it isn't.
    template <class F>
    QWidget& Widget() {
        return *Touch(Key<F>()).widget;
    }

    // Whether F is loaded, without loading it.
    template <class F>
    bool Loaded() const {
        auto it = slots_.find(Key<F>());
        return it != slots_.end() && !it->second.widget.isNull();
    }

    // Unloads F: the window goes, and the next touch makes a fresh one.
    template <class F>
    void Unload() {
        auto it = slots_.find(Key<F>());
        if (it != slots_.end()) Drop(it->second);
    }

    // Unloads F from inside one of its own handlers. F leaves at once (Loaded<F>() is false and
    // the next touch makes a fresh one) and its window hides, but the window is deleted only when
    // control is back in the event loop, since the handler that asked still runs on it.
    template <class F>
    void UnloadLater() {
        auto it = slots_.find(Key<F>());
        if (it != slots_.end()) DropLater(it->second.widget.data());
    }

private:
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
