#include "settings/portlist.h"

#include "serialport/serialportitem.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QStyledItemDelegate>

namespace {

void styleEntries(QComboBox &list)
{
    list.setItemDelegate(new QStyledItemDelegate(&list)); // the default one paints entries of a menu
    list.view()->setStyleSheet(
        QStringLiteral("selection-background-color: palette(highlight); selection-color: palette(highlighted-text);"));
}

/** Styles the entries of the list that it belongs to when that is shown first, since it makes the pop-up. */
class EntryStyler : public QObject
{
public:
    explicit EntryStyler(QComboBox &list) : QObject(&list), m_list(list) { list.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show) {
            m_list.removeEventFilter(this);
            styleEntries(m_list);
            deleteLater();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QComboBox &m_list;
};

} // namespace

void markCurrentEntry(QComboBox &list)
{
    new EntryStyler(list); // belongs to the list
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
