#include "settings/portlist.h"

#include "serialport/serialportitem.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QStyledItemDelegate>

void markCurrentEntry(QComboBox &list)
{
    list.setItemDelegate(new QStyledItemDelegate(&list)); // the default one paints entries of a menu
    list.view()->setStyleSheet(
        QStringLiteral("selection-background-color: palette(highlight); selection-color: palette(highlighted-text);"));
}

void fillPortList(QComboBox &list, const std::vector<std::shared_ptr<SerialPortItem>> &ports,
                  const QString &notAvailable)
{
    const auto told = [&](const QString &text) { return text.isEmpty() ? notAvailable : text; };
    const auto identifier = [&](quint16 number) { return number ? QString::number(number, 16) : notAvailable; };
    const QString chosen = list.currentText();
    list.clear();
    for (const auto &port : ports) {
        list.addItem(port->getPortName(),
                     QStringList{port->getPortName(), told(port->getDescription()), told(port->getManufacturer()),
                                 port->getSystemLocation(), identifier(port->getVendorIdentifier()),
                                 identifier(port->getProductIdentifier())});
    }
    list.setCurrentText(chosen);
}
