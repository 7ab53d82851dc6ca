// One table for what a key does and what is told of it.
#include "comforts/keys.h"

namespace {

struct KeyRow {
    Key Pressed;
    KeyCommand Command;
    bool Repeats;
    TextView Words;
};

constexpr KeyRow kKeys[] = {
    {Key::Space, KeyCommand::Pause, false, u"Space: pause, and go on"},
    {Key::Return, KeyCommand::PlayOrStop, false, u"Return: play, or stop"},
    {Key::Left, KeyCommand::SecondsBack, true, u"Left: 5 seconds back"},
    {Key::Right, KeyCommand::SecondsOn, true, u"Right: 5 seconds on"},
    {Key::Up, KeyCommand::Louder, true, u"Up: louder"},
    {Key::Down, KeyCommand::Softer, true, u"Down: softer"},
    {Key::PageUp, KeyCommand::Previous, false, u"Page Up: the track before"},
    {Key::PageDown, KeyCommand::Next, false, u"Page Down: the next track"},
    {Key::O, KeyCommand::Open, false, u"O: open a file"},
    {Key::J, KeyCommand::Jump, false, u"J: jump to a track"},
    {Key::F1, KeyCommand::ShowKeys, false, u"F1: this list"},
};

} // namespace

KeyCommand CommandOfKey(Key key, bool isRepeated, bool hasJump) {
    for (const KeyRow& row : kKeys) {
        if (row.Pressed != key || (isRepeated && !row.Repeats)) continue;
        return row.Command == KeyCommand::Jump && !hasJump ? KeyCommand::None : row.Command;
    }
    return KeyCommand::None;
}

Text ListOfKeys(bool hasJump) {
    Text list;
    for (const KeyRow& row : kKeys) {
        if (row.Command == KeyCommand::Jump && !hasJump) continue;
        if (!list.empty()) list += u'\n';
        list += row.Words;
    }
    return list;
}
