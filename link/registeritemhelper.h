#pragma once

#include <QtGlobal>

#include <functional>
#include <map>
#include <memory>

/** One item of the poll map: how many bytes a value has and who takes it. */
struct RegisterItemHelper
{
    /** Bytes of the value: 1, 2 or 4. */
    quint8 size = 1;
    /** Takes the value as it was assembled, little-endian; narrows it to the register's own type. Never empty. */
    std::function<void(qint32)> handler;
};

/** Poll items by the address of their first register, in ascending order. */
using RegisterBindings = std::map<quint8, std::shared_ptr<RegisterItemHelper>>;
