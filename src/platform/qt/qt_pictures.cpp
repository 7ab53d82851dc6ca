// Detection by the toolkit would try every plugin; naming the format loads one at the most.
#include "platform/qt/qt_pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <string_view>

#include "platform/files.h"

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
    for (int index = 0; index < std::max(count, 1); ++index) {
        if (index > 0 && !reader.jumpToImage(index)) break;
        if (!IsWithinLimit(reader.size())) continue;
        QImage image = reader.read();
        if (best.isNull() || image.width() * image.height() > best.width() * best.height())
            best = std::move(image);
    }
    return best;
}

} // namespace

PicturePtr QtPictures::LoadPicture(const Text& path) {
    const std::optional<std::string> bytes = ReadFileBytes(path, kMostFileBytes);
    const char* format = bytes ? FormatOf(*bytes) : nullptr;
    if (!format) return nullptr;
    QByteArray data = QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size()));
    QBuffer buffer(&data);
    if (!buffer.open(QIODevice::ReadOnly)) return nullptr;
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    reader.setAutoTransform(false);
    QImage image = ReadLargest(reader, std::string_view(format) == "ico");
    if (image.isNull() || !IsWithinLimit(image.size())) return nullptr;
    image = std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1);
    return std::make_shared<QtPicture>(std::move(image));
}
