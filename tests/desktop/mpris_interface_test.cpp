// What the player's introspection says, held against the text of the MPRIS interface, version 2.2: each member that is
// not optional is there, with its types and its access, and nothing else is.

#include <QXmlStreamReader>
#include <set>

#include "desktop/desktop_rig.h"
#include "desktop/names.h"

namespace tandem::test {
namespace {

using Members = std::set<std::string>;

// "method Seek in:x:Offset", "property Rate d readwrite", "signal Seeked x:Position".
std::string argument_of(const QXmlStreamAttributes& attributes, bool in_signal) {
  const std::string direction = in_signal ? "" : attributes.value("direction").toString().toStdString() + ":";
  return " " + direction +
         (attributes.value("type").toString() + ":" + attributes.value("name").toString()).toStdString();
}

Members members_of(const std::string& introspection, const std::string& interface) {
  QXmlStreamReader xml(QByteArray::fromStdString(introspection));
  Members members;
  std::string member;
  bool wanted = false;
  while (!xml.atEnd()) {
    const auto token = xml.readNext();
    const std::string element = xml.name().toString().toStdString();
    const QXmlStreamAttributes attributes = xml.attributes();
    const bool is_member = element == "method" || element == "signal" || element == "property";
    if (token == QXmlStreamReader::StartElement && element == "interface")
      wanted = attributes.value("name").toString().toStdString() == interface;
    if (!wanted) continue;
    if (token == QXmlStreamReader::StartElement && is_member) {
      member = element + " " + attributes.value("name").toString().toStdString();
      if (element == "property")
        member +=
            (" " + attributes.value("type").toString() + " " + attributes.value("access").toString()).toStdString();
    }
    if (token == QXmlStreamReader::StartElement && element == "arg")
      member += argument_of(attributes, member.starts_with("signal"));
    if (token == QXmlStreamReader::EndElement && is_member) members.insert(member);
  }
  return members;
}

class MprisInterface : public DesktopRig {
 protected:
  Members members(const std::string& interface) {
    start();
    std::string text;
    meanwhile([&](sd_bus* bus) {
      sd_bus_message* reply = nullptr;
      const char* xml = "";
      if (sd_bus_call_method(bus, kMprisName, kMprisObject, "org.freedesktop.DBus.Introspectable", "Introspect",
                             nullptr, &reply, nullptr) >= 0)
        sd_bus_message_read_basic(reply, 's', &xml);
      text = xml;
      sd_bus_message_unref(reply);
    });
    return members_of(text, interface);
  }
};

TEST_F(MprisInterface, OfTheProgramIsWhole) {
  EXPECT_EQ(members("org.mpris.MediaPlayer2"),
            (Members{"method Raise", "method Quit", "property CanQuit b read", "property CanRaise b read",
                     "property HasTrackList b read", "property Identity s read", "property DesktopEntry s read",
                     "property SupportedUriSchemes as read", "property SupportedMimeTypes as read"}));
}

TEST_F(MprisInterface, OfThePlayerIsWhole) {
  EXPECT_EQ(members("org.mpris.MediaPlayer2.Player"), (Members{"method Next",
                                                               "method Previous",
                                                               "method Pause",
                                                               "method PlayPause",
                                                               "method Stop",
                                                               "method Play",
                                                               "method Seek in:x:Offset",
                                                               "method SetPosition in:o:TrackId in:x:Position",
                                                               "method OpenUri in:s:Uri",
                                                               "signal Seeked x:Position",
                                                               "property PlaybackStatus s read",
                                                               "property Rate d readwrite",
                                                               "property Metadata a{sv} read",
                                                               "property Volume d readwrite",
                                                               "property Position x read",
                                                               "property MinimumRate d read",
                                                               "property MaximumRate d read",
                                                               "property CanGoNext b read",
                                                               "property CanGoPrevious b read",
                                                               "property CanPlay b read",
                                                               "property CanPause b read",
                                                               "property CanSeek b read",
                                                               "property CanControl b read"}));
}

}  // namespace
}  // namespace tandem::test
