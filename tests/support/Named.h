// How the tests reach a form's controls: by the name the form gives each one (its objectName, the
// design name; "Jour(12)" for an element of a control array), as a user finds them on the
// screen, never through the form's members, which are its own library's.
#pragma once

#include <QObject>
#include <QString>

#include <gtest/gtest.h>

namespace skelda::test {

// The control of Form named Name, or none, with a failed expectation.
template <class Control>
Control* Named(const QObject& form, const QString& name) {
    auto* control = form.findChild<Control*>(name);
    EXPECT_NE(control, nullptr) << "no control named " << name.toStdString() << " in "
                                << form.objectName().toStdString();
    return control;
}

}  // namespace skelda::test
