#include "widgets/zelvarcombobox.h"

#include <QListView>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QStylePainter>

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

void ZelvarComboBox::paintEvent(QPaintEvent *event)
{
    if (!isBlank()) {
        BoundInput::paintEvent(event);
        return;
    }
    ground::paint(*this, *event);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText.clear();
    option.currentIcon = QIcon();
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
