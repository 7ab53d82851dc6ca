// Left to itself the toolkit loads every plugin to find a file's format. So the format is found
// here and named, which loads one plugin at most.
#include "platform/qt/qt_pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <string_view>
#include <sys/stat.h>
#include <tuple>

#include "platform/files.h"
#include "platform/paths.h"

namespace {

constexpr std::size_t kMostFileBytes = 64u << 20;
constexpr std::int64_t kMostPixels = (64 << 20) / 4;

// The toolkit's name for the format of a file that begins with `bytes`, or null.
const char* FormatOf(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("BM")) return "bmp";
    if (bytes.starts_with("GIF8")) return "gif";
    if (bytes.starts_with("\xFF\xD8\xFF")) return "jpeg";
    if (bytes.starts_with("\x89PNG")) return "png";
    if (bytes.starts_with("\0\0\1\0"sv)) return "ico";
    return nullptr;
}

bool IsWithinLimit(const QSize& size) {
    return !size.isValid() || std::int64_t{size.width()} * size.height() <= kMostPixels;
}

// The number that `count` bytes at `at` are, the lowest one first; 0 behind the end.
std::size_t NumberAt(std::string_view bytes, std::size_t at, std::size_t count) {
    std::size_t number = 0;
    for (std::size_t place = 0; place < count && at + count <= bytes.size(); ++place)
        number |= std::size_t{static_cast<unsigned char>(bytes[at + place])} << (8 * place);
    return number;
}

// How many bits a pixel of an icon's image has. Many tables of icons leave that out, so a bitmap's
// own header goes first.
std::size_t DepthInIcon(std::string_view icon, int index) {
    const std::size_t entry = 6 + 16 * std::size_t(index), image = NumberAt(icon, entry + 12, 4);
    constexpr std::size_t kBitmapHeaderBytes = 40;
    const bool isBitmap = NumberAt(icon, image, 4) == kBitmapHeaderBytes;
    return isBitmap ? NumberAt(icon, image + 14, 2) : NumberAt(icon, entry + 6, 2);
}

// Of an icon the largest image, of several the deepest; of anything else the first.
QImage ReadBest(QImageReader& reader, std::string_view bytes, bool isIcon) {
    QImage best;
    std::tuple<int, std::size_t> bestRank;
    const int count = isIcon ? std::min(reader.imageCount(), 64) : 1;
    for (int index = 0; index < count; ++index) {
        if (index > 0 && !reader.jumpToImage(index)) break;
        if (!IsWithinLimit(reader.size())) continue;
        QImage image = reader.read();
        const std::tuple rank(image.width() * image.height(), DepthInIcon(bytes, index));
        if (!best.isNull() && rank <= bestRank) continue;
        best = std::move(image);
        bestRank = rank;
    }
    return best;
}

} // namespace

QImage DecodePicture(std::string_view bytes) {
    const char* format = FormatOf(bytes);
    if (!format) return {};
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    if (!buffer.open(QIODevice::ReadOnly)) return {};
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    QImage image = ReadBest(reader, bytes, std::string_view(format) == "ico");
    if (image.isNull() || !IsWithinLimit(image.size())) return {};
    return std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::optional<QtPictures::FileIdentity> QtPictures::IdentityOf(const Text& path) {
    const std::optional<std::string> found = FindPath(path);
    struct stat facts {};
    if (!found || stat(found->c_str(), &facts) != 0) return std::nullopt;
    const std::int64_t changedNs =
        facts.st_mtim.tv_sec * std::int64_t{1'000'000'000} + facts.st_mtim.tv_nsec;
    return FileIdentity{static_cast<std::int64_t>(facts.st_dev),
                        static_cast<std::int64_t>(facts.st_ino), facts.st_size, changedNs};
}

void QtPictures::ForgetUnused() {
    std::erase_if(m_decoded, [](const auto& entry) { return entry.second.expired(); });
}

PicturePtr QtPictures::LoadPicture(const Text& path) {
    const std::optional<FileIdentity> identity = IdentityOf(path);
    if (!identity) return nullptr;
    if (const auto known = m_decoded.find(*identity); known != m_decoded.end())
        if (const PicturePtr twin = known->second.lock()) {
            // The newer picture is the one to know, since as a rule it is in use for longer.
            PicturePtr picture =
                std::make_shared<QtPicture>(static_cast<const QtPicture&>(*twin).Image);
            known->second = picture;
            return picture;
        }
    const std::optional<std::string> bytes = ReadFileBytes(path, kMostFileBytes);
    QImage image = bytes ? DecodePicture(*bytes) : QImage();
    if (image.isNull()) return nullptr;
    ForgetUnused();
    PicturePtr picture = std::make_shared<QtPicture>(std::move(image));
    m_decoded[*identity] = picture;
    return picture;
}
