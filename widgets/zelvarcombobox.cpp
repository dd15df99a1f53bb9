#include "widgets/zelvarcombobox.h"

#include <QHelpEvent>
#include <QLayout>
#include <QListView>
#include <QScreen>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QToolTip>

namespace {

// Choosing this entry always counts as clean.
constexpr int CleanIndex = 10;

constexpr char DisconnectedTextColor[] = "#B3B3B3";
constexpr char ConnectedTextColor[] = "#5C5C61";

QString listStyle(const char *disabledTextColor)
{
    return QStringLiteral("QComboBox:enabled { background-color:white; } "
                          "QComboBox:disabled { border: 1px solid #D6D3D1; background-color:#ECEAE9; color: %1; "
                          "padding: 1px 0px 1px 3px; selection-color: #5C5C61; }")
        .arg(QLatin1String(disabledTextColor));
}

} // namespace

ZelvarComboBox::ZelvarComboBox(QWidget *parent) : BoundInput(parent), m_list(new QListView(this))
{
    setView(m_list);
    connect(this, SIGNAL(currentIndexChanged(int)), this, SLOT(on_currentIndexChanged(int)));
    setStyleSheet(listStyle(DisconnectedTextColor));
}

int ZelvarComboBox::value() const
{
    return currentIndex();
}

void ZelvarComboBox::on_deviceLoaded()
{
    takeDevice();
}

void ZelvarComboBox::on_currentIndexChanged(int)
{
    trackEdit();
}

int ZelvarComboBox::shown() const
{
    return currentIndex();
}

QString ZelvarComboBox::storedText() const
{
    return itemText(stored());
}

void ZelvarComboBox::display(const int &index)
{
    setCurrentIndex(index);
}

int ZelvarComboBox::fromRaw(int raw) const
{
    return raw;
}

int ZelvarComboBox::placeholder() const
{
    return count() - 1;
}

bool ZelvarComboBox::isEdited() const
{
    return BoundInput::isEdited() && currentIndex() != CleanIndex;
}

void ZelvarComboBox::adaptToLink()
{
    setStyleSheet(listStyle(isConnected() ? ConnectedTextColor : DisconnectedTextColor));
    m_list->setRowHidden(placeholder(), isConnected());
    // Hidden entries can still be reached with the keyboard, disabled ones cannot.
    if (auto *items = qobject_cast<QStandardItemModel *>(model())) {
        if (QStandardItem *last = items->item(placeholder()))
            last->setEnabled(!isConnected());
    }
}

// Under a style sheet Qt makes the list a little too low for all of its entries; one then hides behind an arrow.
void ZelvarComboBox::showPopup()
{
    BoundInput::showPopup();
    int height = 0;
    for (int row = 0; row < count(); ++row)
        height += m_list->isRowHidden(row) ? 0 : m_list->sizeHintForRow(row);
    QWidget *popup = m_list->parentWidget();
    const QRect made = popup->geometry();
    // The arrows go only when there is room for all entries and for them; then it can be told what the frame takes.
    popup->resize(made.width(), made.height() + height);
    popup->layout()->activate();
    const int whole = popup->height() - m_list->viewport()->height() + height;
    const bool hasRoom = made.top() + whole <= screen()->availableGeometry().bottom();
    popup->setGeometry(QRect(made.topLeft(), QSize(made.width(), hasRoom ? whole : made.height())));
    popup->layout()->activate();
}

bool ZelvarComboBox::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !isBlank()) {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        if (fitted(option).isCut) {
            const QString tip = currentText() + QLatin1Char('\n') + toolTip();
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tip, this);
            return true;
        }
    }
    return BoundInput::event(event);
}

void ZelvarComboBox::paintEvent(QPaintEvent *event)
{
    ground::paint(*this, *event);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.setPen(palette().color(QPalette::Text));
    if (!isBlank())
        fitted(option).draw(painter, textRoom(option), int(Qt::AlignVCenter | Qt::AlignLeft));
}

QRect ZelvarComboBox::textRoom(const QStyleOptionComboBox &option) const
{
    constexpr int Gap = 1; // pixel, as the styles leave between frame and text
    return style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
        .adjusted(Gap, 0, -Gap, 0);
}

FittedText ZelvarComboBox::fitted(const QStyleOptionComboBox &option) const
{
    return fittedText(font(), currentText(), textRoom(option).size());
}
