// What a dialog's window belongs to. The toolkit knows owners that are widgets; ours is none.
#pragma once

#include <QWidget>
#include <QWindow>

/// Has `dialog` open in front of `owner`, in its middle; in the middle of the screen without one.
/// Called before each opening.
inline void PutBefore(QWidget& dialog, QWindow* owner) {
    // Without a window of the platform's there is nothing yet that could belong to another.
    dialog.winId();
    dialog.windowHandle()->setTransientParent(owner);
}
