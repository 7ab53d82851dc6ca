// The original platform's dialog changed the process's directory; here the current directory is a
// text that the system keeps.
#include "state/file_dialogs.h"

#include "platform/paths.h"

void InitialiseFilters(std::vector<FilterRow>& MediaFilter, std::vector<FilterRow>& PlaylistFilter,
                       std::vector<FilterRow>& SkinFilter) {
    const FilterRow allFiles{u"All Files (*.*)", u"*.*"};
    MediaFilter = {{u"MP3 Files (*.mp3)", u"*.mp3"},
                   {u"MP2 Files (*.mp2)", u"*.mp2"},
                   {u"MP1 Files (*.mp1)", u"*.mp1"},
                   {u"Mpg Files (*.mpg)", u"*.mpg"},
                   {u"Mpeg Files (*.mpeg)", u"*.mpeg"},
                   {u"Wav Audio Files (*.wav)", u"*.wav"},
                   {u"Windows Media Audio (*.wma)", u"*.wma"},
                   {u"Windows Media Video (*.wmv)", u"*.wmv"},
                   allFiles};
    PlaylistFilter = {{u"M3U Files (*.m3u)", u"*.m3u"}, allFiles};
    SkinFilter = {{u"Skin Files (*.vs4)", u"*.vs4"}, allFiles};
}

Text OpenFileDialog(Velora& velora, const std::vector<FilterRow>& Filter, const Text& Title,
                    const Text& Directory) {
    ForgetCapture(velora.Capture);
    Text path = velora.Dialogs.ChooseFile(Title, Directory, Filter);
    if (path.empty()) return path;
    const std::size_t directoryLength = path.size() - GetFileName(path).size();
    // Without the backslash at its end, but for the root.
    velora.System.SetCurrentDirectory(
        path.substr(0, directoryLength > 1 ? directoryLength - 1 : directoryLength));
    return path;
}
