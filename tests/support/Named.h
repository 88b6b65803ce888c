// How the tests reach a form's controls: by the name the form gives each one (its objectName, the
// design name; "Jour(12)" for an element of a control array), as a user finds them on the
// screen, never through the form's members, which are its own library's.
#pragma once

#include <QObject>
#include <QString>

#include <gtest/gtest.h>

#include <vector>

namespace skelda::test {

// The control of Form named Name, or none, with a failed expectation.
template <class Control>
Control* Named(const QObject& form, const QString& name) {
    auto* control = form.findChild<Control*>(name);
    EXPECT_NE(control, nullptr) << "no control named " << name.toStdString() << " in "
                                << form.objectName().toStdString();
    return control;
}

// The elements First to Last of the control array Name ("FKNT(0)", "FKNT(1)", ...), each found
// by its name.
template <class Control>
std::vector<Control*> NamedArray(const QObject& form, const char* name, int first, int last) {
    std::vector<Control*> controls;
    for (int i = first; i <= last; ++i)
        controls.push_back(Named<Control>(form, QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i)));
    return controls;
}

}  // namespace skelda::test
