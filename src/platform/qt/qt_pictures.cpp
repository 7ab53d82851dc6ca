// Left to itself the toolkit loads every plugin to find a file's format. So the format is found
// here and named, which loads one plugin at most.
#include "platform/qt/qt_pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <string_view>
#include <sys/stat.h>

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

// Of an icon the largest image, of anything else the first.
QImage ReadLargest(QImageReader& reader, bool isIcon) {
    QImage best;
    const int count = isIcon ? std::min(reader.imageCount(), 64) : 1;
    for (int index = 0; index < count; ++index) {
        if (index > 0 && !reader.jumpToImage(index)) break;
        if (!IsWithinLimit(reader.size())) continue;
        QImage image = reader.read();
        if (best.isNull() || image.width() * image.height() > best.width() * best.height())
            best = std::move(image);
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
    QImage image = ReadLargest(reader, std::string_view(format) == "ico");
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
