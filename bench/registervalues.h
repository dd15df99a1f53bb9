#pragma once

#include "model/field.h"

#include <QByteArray>

#include <random>

/** Which registers get another value from poll to poll. */
enum class Changing {
    Nothing,
    RealtimeValues, ///< the six that the edit view shows as "actual"
    Everything,
};

/** Makes register tables of the own family whose values all lie in the range that their control shows. */
class RegisterValues
{
public:
    static constexpr int TableSize = 118;

    RegisterValues();

    /** The table last made. */
    QByteArray table() const { return m_table; }
    /** Gives each register that @p changing tells another value than it had. */
    void change(Changing changing);

private:
    void changeAll();
    void changeBaudRate(const model::Field &field);
    void changeOne(const model::Field &field, int least, int greatest);
    quint32 number(const model::Field &field) const;
    void put(const model::Field &field, quint32 number);

    QByteArray m_table;
    std::mt19937 m_random; ///< seeded alike each time: every run shows the same values
};
