// Asked of the kernel and the environment, without the toolkit, so that it works before a display
// is there.
#include "platform/program_places.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

#include "platform/paths.h"

namespace {

// The user's own directory for Velora's files; empty if the user has no home.
std::string UserDirectory() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data && data[0] == '/') return std::string(data) + "/velora";
    const char* home = std::getenv("HOME");
    return home && home[0] == '/' ? std::string(home) + "/.local/share/velora" : std::string();
}

} // namespace

Text ProgramDirectory() {
    std::error_code error;
    const std::string program = std::filesystem::read_symlink("/proc/self/exe", error).string();
    const std::size_t slash = program.rfind('/');
    return slash == std::string::npos ? Text() : PathText(program.substr(0, slash));
}

Text ProcessDirectory() {
    std::error_code error;
    return PathText(std::filesystem::current_path(error).string());
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
    if (directory.empty() || access(PathBytes(programDirectory).c_str(), W_OK) == 0)
        return programDirectory + name;
    return PathText(directory) + name;
}
