// Each method and each property is a row.
#include "platform/qt/mpris_answer.h"

#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>
#include <optional>

#include "platform/qt/mpris_names.h"
#include "platform/qt/qt_text.h"

namespace {

constexpr qlonglong kUsPerMs = 1000;
constexpr double kOnlyRate = 1;
constexpr char kBusItself[] = "org.freedesktop.DBus.";
constexpr char kNoMethod[] = "There is no such method";
constexpr char kNoProperty[] = "There is no such property";
constexpr char kNoInterface[] = "There is no such interface";

struct MethodRow {
    const char* Interface;
    const char* Name;
    const char* Signature;
    MediaAnswer (*Run)(MediaRequests&, const QVariantList&);
};

// A request without anything to refuse.
template<void (MediaRequests::*Request)()>
MediaAnswer Plain(MediaRequests& requests, const QVariantList&) {
    (requests.*Request)();
    return MediaAnswer::Done;
}

MediaAnswer Seek(MediaRequests& requests, const QVariantList& arguments) {
    requests.OnSeek(arguments[0].toLongLong());
    return MediaAnswer::Done;
}

// A track that isn't the present one is passed over in silence, as is a place outside of it.
MediaAnswer SetPosition(MediaRequests& requests, const QVariantList& arguments) {
    const QString path = arguments[0].value<QDBusObjectPath>().path();
    const QString start = QString::fromLatin1(kTrackPath);
    if (path.startsWith(start))
        requests.OnSetPosition(path.mid(start.size()).toShort(), arguments[1].toLongLong());
    return MediaAnswer::Done;
}

MediaAnswer OpenUri(MediaRequests& requests, const QVariantList& arguments) {
    return requests.OnOpenUri(arguments[0].toString().toStdString());
}

constexpr MethodRow kMethods[] = {
    {kMprisRoot, "Raise", "", Plain<&MediaRequests::OnRaise>},
    {kMprisRoot, "Quit", "", Plain<&MediaRequests::OnQuit>},
    {kMprisPlayer, "Next", "", Plain<&MediaRequests::OnNext>},
    {kMprisPlayer, "Previous", "", Plain<&MediaRequests::OnPrevious>},
    {kMprisPlayer, "Pause", "", Plain<&MediaRequests::OnPause>},
    {kMprisPlayer, "PlayPause", "", Plain<&MediaRequests::OnPlayPause>},
    {kMprisPlayer, "Stop", "", Plain<&MediaRequests::OnStop>},
    {kMprisPlayer, "Play", "", Plain<&MediaRequests::OnPlay>},
    {kMprisPlayer, "Seek", "x", Seek},
    {kMprisPlayer, "SetPosition", "ox", SetPosition},
    {kMprisPlayer, "OpenUri", "s", OpenUri},
};

QVariant StatusWord(const MediaFacts& facts) {
    switch (facts.Status) {
    case MediaStatus::Playing:
        return QStringLiteral("Playing");
    case MediaStatus::Paused:
        return QStringLiteral("Paused");
    case MediaStatus::Stopped:
        break;
    }
    return QStringLiteral("Stopped");
}

QVariant LoopWord(const MediaFacts& facts) {
    return facts.Repeat ? QStringLiteral("Playlist") : QStringLiteral("None");
}

QVariant Metadata(const MediaFacts& facts) {
    QVariantMap map;
    const QString path = facts.Track == 0
                             ? QString::fromLatin1(kNoTrack)
                             : QString::fromLatin1(kTrackPath) + QString::number(facts.Track);
    map[QStringLiteral("mpris:trackid")] = QVariant::fromValue(QDBusObjectPath(path));
    if (facts.LengthMs > 0) map[QStringLiteral("mpris:length")] = facts.LengthMs * kUsPerMs;
    if (!facts.Title.empty()) map[QStringLiteral("xesam:title")] = ToQString(facts.Title);
    if (!facts.Artist.empty())
        map[QStringLiteral("xesam:artist")] = QStringList(ToQString(facts.Artist));
    if (!facts.Album.empty()) map[QStringLiteral("xesam:album")] = ToQString(facts.Album);
    if (!facts.Address.empty())
        map[QStringLiteral("xesam:url")] = QString::fromStdString(facts.Address);
    return map;
}

MediaAnswer SetLoop(MediaRequests& requests, const QVariant& value) {
    const QString word = value.toString();
    if (word == QLatin1String("Track")) return MediaAnswer::NotSupported;
    if (word != QLatin1String("None") && word != QLatin1String("Playlist"))
        return MediaAnswer::Invalid;
    requests.OnRepeat(word == QLatin1String("Playlist"));
    return MediaAnswer::Done;
}

MediaAnswer SetShuffle(MediaRequests& requests, const QVariant& value) {
    requests.OnShuffle(value.toBool());
    return MediaAnswer::Done;
}

// Standing still is a pause; of other speeds there is only one.
MediaAnswer SetRate(MediaRequests& requests, const QVariant& value) {
    if (value.toDouble() == 0) requests.OnPause();
    return MediaAnswer::Done;
}

MediaAnswer SetVolume(MediaRequests& requests, const QVariant& value) {
    return requests.OnVolume(value.toDouble());
}

MediaAnswer Refuse(MediaRequests&, const QVariant&) {
    return MediaAnswer::NotSupported;
}

struct PropertyRow {
    const char* Interface;
    const char* Name;
    QVariant (*Get)(const MediaFacts&);
    MediaAnswer (*Set)(MediaRequests&, const QVariant&) = nullptr;
};

template<bool Value>
QVariant Always(const MediaFacts&) {
    return Value;
}

QVariant OnlyRate(const MediaFacts&) {
    return kOnlyRate;
}

constexpr PropertyRow kPropertyRows[] = {
    {kMprisRoot, "CanQuit", Always<true>},
    {kMprisRoot, "Fullscreen", Always<false>, Refuse},
    {kMprisRoot, "CanSetFullscreen", Always<false>},
    {kMprisRoot, "CanRaise", Always<true>},
    {kMprisRoot, "HasTrackList", Always<false>},
    {kMprisRoot, "Identity",
     [](const MediaFacts&) -> QVariant { return QStringLiteral("Velora"); }},
    {kMprisRoot, "DesktopEntry",
     [](const MediaFacts&) -> QVariant { return QStringLiteral("velora"); }},
    {kMprisRoot, "SupportedUriSchemes",
     [](const MediaFacts&) -> QVariant { return QStringList(QStringLiteral("file")); }},
    {kMprisRoot, "SupportedMimeTypes",
     [](const MediaFacts&) -> QVariant {
         return QStringList{QStringLiteral("audio/mpeg"), QStringLiteral("audio/x-mpegurl")};
     }},
    {kMprisPlayer, "PlaybackStatus", StatusWord},
    {kMprisPlayer, "LoopStatus", LoopWord, SetLoop},
    {kMprisPlayer, "Rate", OnlyRate, SetRate},
    {kMprisPlayer, "Shuffle", [](const MediaFacts& facts) -> QVariant { return facts.Shuffle; },
     SetShuffle},
    {kMprisPlayer, "Metadata", Metadata},
    {kMprisPlayer, "Volume",
     [](const MediaFacts& facts) -> QVariant { return facts.VolumePercent / 100.0; }, SetVolume},
    {kMprisPlayer, "MinimumRate", OnlyRate},
    {kMprisPlayer, "MaximumRate", OnlyRate},
    {kMprisPlayer, "CanGoNext", [](const MediaFacts& facts) -> QVariant { return facts.CanStep; }},
    {kMprisPlayer, "CanGoPrevious",
     [](const MediaFacts& facts) -> QVariant { return facts.CanStep; }},
    {kMprisPlayer, "CanPlay", [](const MediaFacts& facts) -> QVariant { return facts.CanPlay; }},
    {kMprisPlayer, "CanPause", [](const MediaFacts& facts) -> QVariant { return facts.CanPlay; }},
    {kMprisPlayer, "CanSeek", [](const MediaFacts& facts) -> QVariant { return facts.CanSeek; }},
    {kMprisPlayer, "CanControl", Always<true>},
};

constexpr char kPosition[] = "Position";

QVariant ValueOf(const QString& interface, const QString& name, MediaRequests& requests) {
    if (interface == QLatin1String(kMprisPlayer) && name == QLatin1String(kPosition))
        return QVariant(static_cast<qlonglong>(requests.PositionUs()));
    for (const PropertyRow& row : kPropertyRows)
        if (interface == QLatin1String(row.Interface) && name == QLatin1String(row.Name))
            return row.Get(requests.Facts());
    return {};
}

QDBusMessage ReplyTo(const QDBusMessage& message, MediaAnswer answer) {
    switch (answer) {
    case MediaAnswer::Done:
        return message.createReply();
    case MediaAnswer::Invalid:
        return message.createErrorReply(QDBusError::InvalidArgs,
                                        QStringLiteral("That value means nothing here"));
    case MediaAnswer::NotSupported:
        return message.createErrorReply(QDBusError::NotSupported,
                                        QStringLiteral("Velora doesn't do that"));
    case MediaAnswer::Full:
        return message.createErrorReply(QDBusError::LimitsExceeded,
                                        QStringLiteral("The list is full"));
    }
    return {};
}

QDBusMessage WrongArguments(const QDBusMessage& message) {
    return message.createErrorReply(QDBusError::InvalidArgs,
                                    QStringLiteral("Those aren't the arguments"));
}

QDBusMessage Unknown(const QDBusMessage& message, QDBusError::ErrorType kind, const char* words) {
    return message.createErrorReply(kind, QString::fromLatin1(words));
}

bool IsInterface(const QString& interface) {
    return interface == QLatin1String(kMprisRoot) || interface == QLatin1String(kMprisPlayer);
}

QDBusMessage Get(const QDBusMessage& message, MediaRequests& requests) {
    const QVariantList arguments = message.arguments();
    const QVariant value = ValueOf(arguments[0].toString(), arguments[1].toString(), requests);
    if (value.isValid()) return message.createReply(QVariant::fromValue(QDBusVariant(value)));
    return Unknown(message, QDBusError::UnknownProperty, kNoProperty);
}

QDBusMessage GetAll(const QDBusMessage& message, MediaRequests& requests) {
    const QString interface = message.arguments().constFirst().toString();
    if (!IsInterface(interface))
        return Unknown(message, QDBusError::UnknownInterface, kNoInterface);
    QVariantMap all;
    for (const PropertyRow& row : kPropertyRows)
        if (interface == QLatin1String(row.Interface))
            all[QString::fromLatin1(row.Name)] = row.Get(requests.Facts());
    if (interface == QLatin1String(kMprisPlayer))
        all[QString::fromLatin1(kPosition)] =
            ValueOf(interface, QString::fromLatin1(kPosition), requests);
    return message.createReply(QVariant(all));
}

QDBusMessage Set(const QDBusMessage& message, MediaRequests& requests) {
    const QVariantList arguments = message.arguments();
    const QString interface = arguments[0].toString(), name = arguments[1].toString();
    const QVariant before = ValueOf(interface, name, requests);
    if (!before.isValid()) return Unknown(message, QDBusError::UnknownProperty, kNoProperty);
    const QVariant value = arguments[2].value<QDBusVariant>().variant();
    for (const PropertyRow& row : kPropertyRows) {
        if (interface != QLatin1String(row.Interface) || name != QLatin1String(row.Name) ||
            !row.Set)
            continue;
        if (value.metaType() != before.metaType()) return WrongArguments(message);
        return ReplyTo(message, row.Set(requests, value));
    }
    return message.createErrorReply(QDBusError::PropertyReadOnly,
                                    QStringLiteral("That property can't be set"));
}

QDBusMessage AnswerProperties(const QDBusMessage& message, MediaRequests& requests) {
    const QString member = message.member(), signature = message.signature();
    if (member == QLatin1String("Get"))
        return signature == QLatin1String("ss") ? Get(message, requests) : WrongArguments(message);
    if (member == QLatin1String("GetAll"))
        return signature == QLatin1String("s") ? GetAll(message, requests)
                                               : WrongArguments(message);
    if (member == QLatin1String("Set"))
        return signature == QLatin1String("ssv") ? Set(message, requests) : WrongArguments(message);
    return {};
}

} // namespace

QVariant PlayerProperty(const QString& name, MediaRequests& requests) {
    return ValueOf(QString::fromLatin1(kMprisPlayer), name, requests);
}

QDBusMessage AnswerTo(const QDBusMessage& message, MediaRequests& requests) {
    if (message.interface() == QLatin1String(kProperties))
        return AnswerProperties(message, requests);
    for (const MethodRow& row : kMethods) {
        // The interface may be left out of a call.
        const bool fits =
            message.interface().isEmpty() || message.interface() == QLatin1String(row.Interface);
        if (!fits || message.member() != QLatin1String(row.Name)) continue;
        if (message.signature() != QLatin1String(row.Signature)) return WrongArguments(message);
        return ReplyTo(message, row.Run(requests, message.arguments()));
    }
    if (IsInterface(message.interface()))
        return Unknown(message, QDBusError::UnknownMethod, kNoMethod);
    // Every object has those of the bus itself, which the toolkit answers.
    if (message.interface().isEmpty() || message.interface().startsWith(QLatin1String(kBusItself)))
        return {};
    return Unknown(message, QDBusError::UnknownInterface, kNoInterface);
}
