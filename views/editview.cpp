#include "views/editview.h"

#include "device/fieldhelper.h"
#include "device/iunitdatafield.h"
#include "device/statushelper.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "ui_editview.h"
#include "widgets/fieldtooltip.h"
#include "widgets/limitpairs.h"
#include "widgets/modelnotice.h"
#include "widgets/switchonmark.h"
#include "widgets/uigrouphelper.h"

#include <QApplication>

namespace {

/** The process-wide @p Helper, made from @p arguments when there is none yet. */
template <class Helper, class... Arguments>
std::shared_ptr<Helper> ensure(const Arguments &...arguments)
{
    std::shared_ptr<Helper> &helper = ProcessWide<Helper>::instance();
    if (!helper)
        helper = std::make_shared<Helper>(arguments...);
    return helper;
}

void registerFields(const QObject &parent)
{
    for (QObject *child : parent.children()) {
        if (auto *field = dynamic_cast<IUnitDataField *>(child))
            ensure<UiRegisterHelper>()->registerField(field);
        else
            registerFields(*child);
    }
}

// No heading is too narrow for its text, in whatever language, although the form limits the width of some.
void makeRoomForHeadings(const QWidget &view)
{
    const auto labels = view.findChildren<QLabel *>();
    for (QLabel *label : labels)
        label->setMaximumWidth(qMax(label->maximumWidth(), label->sizeHint().width()));
}

// The fields among the statuses say more while their registers are known.
void explainStatuses(const QWidget &view)
{
    const auto boxes = view.findChildren<QCheckBox *>();
    for (QCheckBox *box : boxes) {
        box->setToolTip(FieldToolTip::remarkText(box->objectName()));
        box->setAccessibleDescription(box->toolTip());
    }
}

} // namespace

EditView::EditView(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::EditView>())
{
    m_ui->setupUi(this);
    makeRoomForHeadings(*this);
    // The last entry of each list stands for "not known yet".
    const auto lists = findChildren<QComboBox *>();
    for (auto *list : lists)
        list->setCurrentIndex(list->count() - 1);

    m_ui->nvParamsCancelToolButton->setRole(ZelvarGroupToolButton::Cancel);
    m_ui->vParamsCancelToolButton->setRole(ZelvarGroupToolButton::Cancel);
    m_ui->nvParamsEditSaveToolButton->setRole(ZelvarGroupToolButton::EditSave);
    m_ui->vParamsEditSaveToolButton->setRole(ZelvarGroupToolButton::EditSave);

    m_groupHelper = ensure<UiGroupHelper>(this);
    ensure<StatusHelper>(this);
    ensure<FieldHelper>(children());
    registerFields(*this);
    new LimitPairs(*this);
    auto *notice =
        new ModelNotice(tr("The program knows the registers of this servo only in part: all that it cannot read stays "
                           "grey and empty, and "
                           "nothing can be edited. It can be found by a search and set back to its factory values."),
                        this);
    m_ui->verticalLayout->insertWidget(0, notice);
    explainStatuses(*this);
    connect(qApp, &QApplication::focusChanged, this, &EditView::scrollTo);
    new SwitchOnMark(*this); // a child of the group
}

EditView::~EditView()
{
    // A child that has the focus gives it up when it goes, which is after this.
    disconnect(qApp, nullptr, this, nullptr);
}

void EditView::scrollTo(QWidget * /*before*/, QWidget *now)
{
    if (!now || !m_ui->scrollAreaWidgetContents->isAncestorOf(now))
        return;
    const bool isAllVisible = now->visibleRegion().boundingRect() == now->rect();
    if (!isAllVisible)
        m_ui->scrollArea->ensureWidgetVisible(now);
}
