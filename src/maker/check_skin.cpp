// The trials that the checks need, and the order of what they find.
#include "maker/check_skin.h"

#include <algorithm>
#include <set>

#include "maker/checks.h"
#include "platform/ini_file.h"
#include "platform/paths.h"
#include "skin/layout.h"

namespace {

// Where the sections of all files that were read stand, for the order of the findings.
class Order {
public:
    explicit Order(const std::vector<Text>& files) {
        for (const Text& file : files) {
            Number(file, {});
            const std::optional<std::string> found = FindPath(file);
            const std::optional<IniFile> ini = found ? OpenIniFile(*found) : std::nullopt;
            if (!ini) continue;
            for (const IniLine& line : ini->Content.Lines())
                if (line.What == IniLine::Kind::Section) Number(file, TextFromBytes(line.Section));
        }
    }
    /// A section that isn't in its file comes at the end.
    [[nodiscard]] std::size_t Of(const Finding& finding) const {
        const auto at = m_numbers.find({finding.File, LowerCase(finding.Section)});
        return at == m_numbers.end() ? m_numbers.size() : at->second;
    }

private:
    void Number(const Text& file, const Text& section) {
        m_numbers.try_emplace({file, LowerCase(section)}, m_numbers.size());
    }

    std::map<std::pair<Text, Text>, std::size_t> m_numbers;
};

std::vector<Text> FilesRead(const Trial& trial) {
    std::vector<Text> files{trial.Path};
    for (const KeyRead& read : trial.Reads)
        if (std::ranges::find(files, read.File) == files.end()) files.push_back(read.File);
    return files;
}

// A skin that isn't shown has no places.
void CheckTrial(Report& report, const PlatformParts& parts, const MeasureText& measure) {
    const Trial& trial = report.Trial;
    const SkinRecord& skin = trial.Skin();
    if (!trial.IsShown())
        return report.At(&skin.Type, Decimal(skin.Type) + u" is a type that is never shown; it has "
                                                          u"to be 1");
    CheckSettings(report);
    CheckShape(report);
    CheckObjects(report);
    CheckPlaces(report);
    CheckVolume(report);
    CheckLights(report);
    Trial playing(parts, trial.Path);
    PlayTrial(playing.State);
    CheckTexts(report, playing.State.frmMain, measure);
    // A skin may name itself.
    const bool hasOther =
        FileExists(skin.Playlist) && FindPath(skin.Playlist) != FindPath(trial.Path);
    const std::unique_ptr<Trial> other =
        hasOther ? std::make_unique<Trial>(parts, skin.Playlist) : nullptr;
    CheckCompanion(report, other.get());
}

} // namespace

std::optional<std::vector<Finding>> CheckSkin(const PlatformParts& parts,
                                              const MeasureText& measure, const Text& path) {
    const std::optional<std::string> found = FindPath(path);
    if (!found || !OpenIniFile(*found)) return std::nullopt;
    const auto trial = std::make_unique<Trial>(parts, path);
    // As while a track plays: that it is hidden at rest is no reason not to look at its place.
    trial->State.frmMain.VFmp3scope1.Visible = true;
    Report report(*trial);
    const std::vector<Text> files = FilesRead(*trial);
    if (std::ranges::none_of(trial->Reads, [](const KeyRead& read) { return !!read.Given; })) {
        report.In({}, u"nothing in this file is read; a skin has a section " +
                          Quoted(trial->Reads.front().Section));
        return std::move(report.Findings);
    }
    if (trial->IsShown()) // Of one that isn't the program doesn't read all.
        for (const Text& file : files)
            CheckKeys(report, file);
    CheckTrial(report, parts, measure);
    const Order order(files);
    std::ranges::stable_sort(report.Findings, {}, [&](const Finding& f) { return order.Of(f); });
    return std::move(report.Findings);
}
