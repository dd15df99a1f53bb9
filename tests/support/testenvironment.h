#pragma once

#include <QtTest>
#include <QtWidgets>

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

/** Names the row of a table that a test goes through, should the test fail in it. */
class InRow
{
public:
    explicit InRow(const QString &name) : m_name(name) {}
    ~InRow()
    {
        if (QTest::currentTestFailed())
            qInfo("in the row \"%s\"", qPrintable(m_name));
    }
    Q_DISABLE_COPY(InRow)

private:
    QString m_name;
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
