#pragma once

#include "app/applytext.h"
#include "session/connection.h"

#include <QObject>
#include <QPointer>
#include <QString>

class LinkLine;
class QMessageBox;
class QWidget;

namespace session {
class ApplyProof;
}

/** Tells in the link line, and where that is not enough in a box, what a connection and its writes come to. */
class LinkReporter : public QObject
{
    Q_OBJECT

public:
    /**
     * @param window gets the boxes. @param view has the lists whose entries are told. All must outlive this object.
     */
    LinkReporter(QWidget &window, const QWidget &view, const session::Connection &connection,
                 const session::ApplyProof &proof, LinkLine &line);
    ~LinkReporter() override;

    /** The connections that follow are made through @p portName. */
    void setPortName(const QString &portName) { m_portName = portName; }
    /** The connection has ended while @p controls, by their object names, were changed and not applied. */
    void tellDropped(const QStringList &controls);
    /** While set, a connection that begins goes on with the one before: what that one lost stays told. */
    void setGoingOn(bool isGoingOn) { m_isGoingOn = isGoingOn; }

private:
    void onStateChanged(session::State state, session::State before);
    void onPolled(const model::RegisterImage &image);
    quint32 reportedBits(const model::RegisterImage &image, const model::Field &field) const;
    void onQualityChanged();
    void onReported(const session::ApplyReport &report);
    void tellLost(const QString &text, const QString &tip);
    void tellNotApplied(const session::ApplyReport &report);

    QWidget &m_window;
    const session::Connection &m_connection;
    LinkLine &m_line;
    ApplyText m_text;
    QString m_portName;
    QString m_lastLoss; ///< what the end of the connection was told to have cost
    QString m_lost;     ///< all of that, with all fields
    bool m_isGoingOn = false;
    QPointer<QMessageBox> m_notApplied;
};
