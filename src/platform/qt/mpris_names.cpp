// As desktops know them; the toolkit describes the interfaces that every object has.
#include "platform/qt/mpris_names.h"

namespace {

constexpr char kDescription[] = R"(<interface name="org.mpris.MediaPlayer2">
  <method name="Raise"/>
  <method name="Quit"/>
  <property name="CanQuit" type="b" access="read"/>
  <property name="Fullscreen" type="b" access="readwrite"/>
  <property name="CanSetFullscreen" type="b" access="read"/>
  <property name="CanRaise" type="b" access="read"/>
  <property name="HasTrackList" type="b" access="read"/>
  <property name="Identity" type="s" access="read"/>
  <property name="DesktopEntry" type="s" access="read"/>
  <property name="SupportedUriSchemes" type="as" access="read"/>
  <property name="SupportedMimeTypes" type="as" access="read"/>
</interface>
<interface name="org.mpris.MediaPlayer2.Player">
  <method name="Next"/>
  <method name="Previous"/>
  <method name="Pause"/>
  <method name="PlayPause"/>
  <method name="Stop"/>
  <method name="Play"/>
  <method name="Seek"><arg name="Offset" type="x" direction="in"/></method>
  <method name="SetPosition">
    <arg name="TrackId" type="o" direction="in"/>
    <arg name="Position" type="x" direction="in"/>
  </method>
  <method name="OpenUri"><arg name="Uri" type="s" direction="in"/></method>
  <signal name="Seeked"><arg name="Position" type="x"/></signal>
  <property name="PlaybackStatus" type="s" access="read"/>
  <property name="LoopStatus" type="s" access="readwrite"/>
  <property name="Rate" type="d" access="readwrite"/>
  <property name="Shuffle" type="b" access="readwrite"/>
  <property name="Metadata" type="a{sv}" access="read"/>
  <property name="Volume" type="d" access="readwrite"/>
  <property name="Position" type="x" access="read">
    <annotation name="org.freedesktop.DBus.Property.EmitsChangedSignal" value="false"/>
  </property>
  <property name="MinimumRate" type="d" access="read"/>
  <property name="MaximumRate" type="d" access="read"/>
  <property name="CanGoNext" type="b" access="read"/>
  <property name="CanGoPrevious" type="b" access="read"/>
  <property name="CanPlay" type="b" access="read"/>
  <property name="CanPause" type="b" access="read"/>
  <property name="CanSeek" type="b" access="read"/>
  <property name="CanControl" type="b" access="read"/>
</interface>
)";

struct NameRow {
    MediaProperty Property;
    const char* Name;
};

constexpr NameRow kNames[] = {
    {MediaProperty::PlaybackStatus, "PlaybackStatus"},
    {MediaProperty::LoopStatus, "LoopStatus"},
    {MediaProperty::Shuffle, "Shuffle"},
    {MediaProperty::Metadata, "Metadata"},
    {MediaProperty::Volume, "Volume"},
    {MediaProperty::CanGoNext, "CanGoNext"},
    {MediaProperty::CanGoPrevious, "CanGoPrevious"},
    {MediaProperty::CanPlay, "CanPlay"},
    {MediaProperty::CanPause, "CanPause"},
    {MediaProperty::CanSeek, "CanSeek"},
};

} // namespace

QString MprisDescription() {
    return QString::fromLatin1(kDescription);
}

QString NameOfProperty(MediaProperty property) {
    for (const NameRow& row : kNames)
        if (row.Property == property) return QString::fromLatin1(row.Name);
    return {};
}
