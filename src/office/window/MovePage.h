#pragma once

#include "office/move/MoveToServer.h"
#include "office/window/OfficeSession.h"
#include "office/window/PageLook.h"

#include <QPushButton>
#include <QWidget>

#include <optional>

namespace Quillane::Office {

/// Moves the embedded database of the station to a SQL Server. During the move the office closes
/// its own connection. If the station was not moved, it opens the connection again; otherwise it
/// closes its window.
class MovePage : public QWidget {
public:
    explicit MovePage(OfficeSession& session);

    QString Place() const { return place_->text(); }
    /// Sets the server, as the dialog does if it works.
    void Choose(const SqlServerTarget& place, const OwnerSignIn& owner);

private:
    void LayOut();
    void ChooseServer();
    void MoveNow();
    std::optional<MovedStation> RunMove();
    void OpenAgain();
    QString Unsaved() const;
    bool MayBegin();

    OfficeSession& session_;
    MoveOrder order_;
    bool isChosen_ = false;
    QLabel* place_ = Note("No server is chosen yet.");
    QPushButton* move_ = nullptr; ///< null if the database is on a server
};

} // namespace Quillane::Office
