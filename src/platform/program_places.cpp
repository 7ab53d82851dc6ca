// Asked of the kernel and the environment, without the toolkit, so that it works before a display
// is there.
#include "platform/program_places.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/paths.h"

namespace {

namespace fs = std::filesystem;

// The user's own directory for Velora's files; empty if the user has no home.
std::string UserDirectory() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data && data[0] == '/') return std::string(data) + "/velora";
    const char* home = std::getenv("HOME");
    return home && home[0] == '/' ? std::string(home) + "/.local/share/velora" : std::string();
}

bool IsWritable(const std::string& directory) {
    return faccessat(AT_FDCWD, directory.c_str(), W_OK, AT_EACCESS) == 0;
}

// Whether a file like that one can be put in its place: in its directory, with its owner and group.
// A link that leads nowhere can't be replaced, a name that isn't taken can.
bool IsReplaceable(const std::string& path) {
    std::error_code error;
    if (fs::symlink_status(path, error).type() == fs::file_type::not_found) return true;
    struct stat facts {};
    const fs::path real = fs::canonical(path, error);
    if (stat(real.c_str(), &facts) != 0 || !IsWritable(real.parent_path())) return false;
    return geteuid() == 0 || (facts.st_uid == geteuid() && group_member(facts.st_gid));
}

} // namespace

Text ProgramDirectory() {
    std::error_code error;
    const std::string program = fs::read_symlink("/proc/self/exe", error).string();
    const std::size_t slash = program.rfind('/');
    return slash == std::string::npos ? Text() : PathText(program.substr(0, slash));
}

Text ProcessDirectory() {
    std::error_code error;
    return PathText(fs::current_path(error).string());
}

Text CommandLineText(const std::vector<std::string>& arguments, const Text& directory) {
    Text line;
    for (const std::string& argument : arguments) {
        if (argument.empty()) continue;
        if (!line.empty()) line += u' ';
        line += u'"';
        if (!argument.starts_with('/')) {
            line += directory;
            if (!directory.ends_with(u'\\')) line += u'\\';
        }
        line += PathText(argument);
        line += u'"';
    }
    return line;
}

Text IniPlace(const Text& programDirectory, const Text& name) {
    const Text beside = programDirectory + name;
    const Text own = OwnIniPlace(programDirectory, name);
    return FileExists(own) || !FileExists(beside) ? own : beside;
}

Text OwnIniPlace(const Text& programDirectory, const Text& name) {
    const std::string directory = UserDirectory();
    const Text beside = programDirectory + name;
    const bool isBeside =
        directory.empty() || (IsWritable(PathBytes(programDirectory)) &&
                              IsReplaceable(FindPath(beside).value_or(PathBytes(beside))));
    return isBeside ? beside : PathText(directory) + name;
}
