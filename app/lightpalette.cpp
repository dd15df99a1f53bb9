#include "app/lightpalette.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

namespace {

struct RoleColor
{
    QPalette::ColorRole role;
    QRgb color;
    QRgb disabledColor;
};

constexpr QRgb Ink = 0xff000000;
constexpr QRgb PaleInk = 0xff727272;
constexpr QRgb Paper = 0xffffffff;
constexpr QRgb Ground = 0xfff0f0f0;

// clang-format off
constexpr RoleColor Colors[] = {
    {QPalette::Window,          Ground,     Ground    },
    {QPalette::WindowText,      Ink,        PaleInk   },
    {QPalette::Base,            Paper,      Ground    },
    {QPalette::AlternateBase,   0xfff7f7f7, Ground    },
    {QPalette::Text,            Ink,        PaleInk   },
    {QPalette::PlaceholderText, 0xff6a6a6a, PaleInk   },
    {QPalette::Button,          Ground,     Ground    },
    {QPalette::ButtonText,      Ink,        PaleInk   },
    {QPalette::BrightText,      Paper,      Paper     },
    {QPalette::ToolTipBase,     0xffffffdc, 0xffffffdc},
    {QPalette::ToolTipText,     Ink,        Ink       },
    {QPalette::Highlight,       0xff1f6ea6, 0xff808080},
    {QPalette::HighlightedText, Paper,      Paper     },
    {QPalette::Link,            0xff0057ae, PaleInk   },
    {QPalette::LinkVisited,     0xff6a1b9a, PaleInk   },
    {QPalette::Light,           Paper,      Paper     },
    {QPalette::Midlight,        0xfff7f7f7, 0xfff7f7f7},
    {QPalette::Mid,             0xffb8b8b8, 0xffb8b8b8},
    {QPalette::Dark,            0xff9f9f9f, 0xff9f9f9f},
    {QPalette::Shadow,          0xff767676, 0xff767676},
};
// clang-format on

/** Kinds of widgets that desktops have palettes of their own for. */
constexpr const char *OwnPalettes[] = {"QMenu",      "QMenuBar", "QTipLabel", "QMessageBoxLabel", "QAbstractItemView",
                                       "QHeaderView"};

// The grounds that the forms give everything in them would swallow the handles of the style.
const QString ScrollBarStyle =
    QStringLiteral("QScrollBar:vertical { width: 14px; } QScrollBar:horizontal { height: 14px; } "
                   "QScrollBar::handle { background-color: #808080; border-radius: 4px; margin: 2px; } "
                   "QScrollBar::handle:hover, QScrollBar::handle:pressed { background-color: #606060; } "
                   "QScrollBar::handle:vertical { min-height: 24px; } "
                   "QScrollBar::handle:horizontal { min-width: 24px; } "
                   "QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }");

QPalette lightPalette()
{
    QPalette palette;
    for (const RoleColor &row : Colors) {
        palette.setColor(QPalette::All, row.role, row.color);
        palette.setColor(QPalette::Disabled, row.role, row.disabledColor);
    }
    return palette;
}

} // namespace

void installLightPalette(QApplication &application)
{
    const QPalette palette = lightPalette();
    QApplication::setPalette(palette);
    for (const char *kind : OwnPalettes)
        QApplication::setPalette(palette, kind);
    QToolTip::setPalette(palette);
    application.setStyleSheet(ScrollBarStyle);
}
