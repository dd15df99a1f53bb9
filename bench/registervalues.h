#pragma once

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
    void changeOne(int address, int size, int least, int greatest, unsigned flag = 0);
    unsigned number(int address, int size) const;
    void put(int address, int size, unsigned number);

    QByteArray m_table;
    std::mt19937 m_random; ///< seeded alike each time: every run shows the same values
};
