// What a user does, as words, and what comes of it, as a text: how the buttons look now, what the
// platform was asked, in order, and all else that has changed. So a test is a row of two texts and
// sees the whole outcome.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/temp_directory.h"
#include "support/velora_fixture.h"

using namespace std::string_literals;

/// Words: a control's name puts the pointer into it ("beside" is the form itself), "5,60" moves the
/// pointer to that place from its corner, "=5,60" does so without a report; "off" and "in" are
/// places of a button.
/// "+L" and "-L" press and release the left button, R, M and S the right, the middle and a side
/// button; "lost" takes the mouse away. "0.4s" waits, "later:+L&-L" is done in the next wait or
/// dialog. "|" tells what has come so far. For the others see use.cpp.
class Use : public Stage {
public:
    /// With a list of tracks called "1_x.mp3" and on, and a skin whose volume steps are 10 pixels
    /// apart.
    explicit Use(int tracks = 3);

    void Do(const std::string& deeds);
    /// Does them and tells what came of it. The program's directory is "~".
    std::string Tell(const std::string& deeds);
    /// The holder that a picture is from.
    std::string NameOf(const PicturePtr& picture) const;

    /// The words, with what each does to what stands behind its colon.
    std::map<std::string, std::function<void(const std::string&)>> Words;

private:
    void Point(const Control* control, int x, int y, bool reported = true);
    std::string Outcome();
    std::vector<std::string> Facts() const;

    PictureBox* m_box = nullptr;        ///< The one that was named last.
    const Control* m_control = nullptr; ///< Where the pointer is; none is the form itself.
    int m_x = 0, m_y = 0;
    Integer m_keys = 0;
    std::string m_told;
    std::vector<std::string> m_facts;
    std::int64_t m_sinceMs = 0;
};

/// A row of a table: what is done before it counts, what is done then, what comes of that.
struct UseRow {
    std::string Name, Before, Deeds, Outcome;
};

/// The program in a directory of its own with the product's skins, before its start, which is the
/// word "start". "put:a.ini=[x]&y=~" writes a file of two lines, `~` is the directory.
class Program : public Use {
public:
    Program();

    TempDirectory directory;
};

template<typename Kind = Use>
void ExpectUses(const std::vector<UseRow>& rows) {
    for (const auto& [name, before, deeds, outcome] : rows) {
        Kind use;
        use.Do(before);
        EXPECT_EQ(use.Tell(deeds), outcome) << name;
    }
}
