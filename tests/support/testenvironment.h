#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

/**
 * What every test program runs in: no display, settings and published buses in a temporary folder of its own, the
 * C locale, and Qt messages outside the test functions printed like those inside, so that CTest sees them.
 * Construct it before the application object.
 */
class TestEnvironment
{
public:
    TestEnvironment();
    ~TestEnvironment();
    Q_DISABLE_COPY(TestEnvironment)

private:
    QTemporaryDir m_folder;
};

/** The main function of a test program around one test class. */
#define ZELVAR_TEST_MAIN(TestClass)                                                                                    \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        TestEnvironment environment;                                                                                   \
        QApplication application(argc, argv);                                                                          \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
