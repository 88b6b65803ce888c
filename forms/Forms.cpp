#include "Forms.h"

#include "Failure.h"

namespace skelda {

Forms::~Forms() {
    for (auto& [key, slot] : slots_) Drop(slot);
}

Forms::Slot& Forms::Touch(const void* key) {
    Slot& slot = slots_[key];
    if (slot.widget.isNull()) {
        if (!slot.make) throw RuntimeError(ObjectNotSet);
        auto [form, widget] = slot.make(*this);
        slot.form = form;
        slot.widget = widget;
    }
    return slot;
}

void Forms::Drop(Slot& slot) {
    if (!slot.widget.isNull()) delete slot.widget.data();
    slot.widget = nullptr;
    slot.form = nullptr;
}

void Forms::DropLater(QWidget* widget) {
    if (widget == nullptr) return;
    for (auto& [key, slot] : slots_)
        if (slot.widget.data() == widget) {
            slot.widget = nullptr;
            slot.form = nullptr;
        }
    widget->hide();
    widget->deleteLater();
}

}  // namespace skelda
