#pragma once

#include <QString>

/** Where the window keeps the port that it connects through; other programs read it. */
namespace storedport {

inline const QString Group = QStringLiteral("port settings");
inline const QString NameKey = QStringLiteral("serialPortName");
inline const QString BaudRateKey = QStringLiteral("baudRate"); ///< bits per second

constexpr int DefaultBaudRate = 1000000;
constexpr int HighestBaudRate = 4000000;

} // namespace storedport
