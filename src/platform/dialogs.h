// The modal dialogs. While one is open timers and player events go on; a call returns when it is
// closed.
#pragma once

#include <vector>

#include "platform/text.h"

enum class MessageButtons { Ok, YesNo };
enum class MessageIcon { None, Question };
enum class MessageAnswer { Ok, Yes, No };

/// A row of a file chooser's list of file types.
struct FilterRow {
    Text Label;
    Text Pattern;

    bool operator==(const FilterRow&) const = default;
};

class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Shows `text` as plain text with the application's name as caption. Closed without a choice
    /// (Escape, the close box) it answers `No` to a question and `Ok` otherwise.
    virtual MessageAnswer MessageBox(const Text& text, MessageButtons buttons,
                                     MessageIcon icon) = 0;

    /// Asks for one line of text; empty if the user cancels.
    [[nodiscard]] virtual Text InputBox(const Text& prompt, const Text& title) = 0;

    /// Lets the user choose one existing file. The first of `rows` counts at the start; `*.*` means
    /// all files, patterns match without regard to case; an empty `directory` leaves the place to
    /// the platform. The full path, or empty if the user cancels or the dialog fails.
    [[nodiscard]] virtual Text ChooseFile(const Text& title, const Text& directory,
                                          const std::vector<FilterRow>& rows) = 0;
};
