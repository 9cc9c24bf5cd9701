#include "shell/ControlStyle.h"
#include "tests/shell/WindowTests.h"

#include <QApplication>
#include <QTest>

int main(int argc, char** argv) {
    using namespace railwright::testing;
    QApplication application(argc, argv);
    QApplication::setStyle(new railwright::ControlStyle);
    QApplication::setQuitOnLastWindowClosed(false);
    NavigationTests navigation;
    DocumentTests documents;
    PanelTests panels;
    int failed = 0;
    for (QObject* const tests : std::initializer_list<QObject*>{&navigation, &documents, &panels})
        failed += QTest::qExec(tests, argc, argv);
    return failed == 0 ? 0 : 1;
}
