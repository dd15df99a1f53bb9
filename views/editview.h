#pragma once

#include <QWidget>

#include <memory>

class UiGroupHelper;

namespace Ui {
class EditView;
}

/**
 * One servo's values in physical units, for watching and editing.
 *
 * The first view of a process makes the process-wide helpers, which stay bound to it; they may outlive it.
 * Each view registers its fields, and of several views the one made last gets the values.
 */
class EditView : public QWidget
{
    Q_OBJECT

public:
    explicit EditView(QWidget *parent = nullptr);
    ~EditView() override;

private:
    void scrollTo(QWidget *before, QWidget *now);

    std::unique_ptr<Ui::EditView> m_ui;
    std::shared_ptr<UiGroupHelper> m_groupHelper;
};
