#include "ui/select/DataToolTip.h"

#include <QLocale>
#include <QStringList>

#include "platform/text/Numbers.h"
#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr int kMostValues = 12;

QString attribute(XmlElement element, const char* name) {
  return toQString(element.attributeOrEmpty(name)).toHtmlEscaped();
}

QString heading(XmlElement element) { return "<b>" + attribute(element, "name") + "</b>"; }

QString number(XmlElement data, const char* name) {
  QLocale locale;
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return locale.toString(leadingNumber(data.attributeOrEmpty(name)), 'g', 15);
}

}  // namespace

QString DataToolTip::ofData(XmlElement data) {
  const XmlElement request = data.parent();
  QStringList lines{heading(data), tr("Request: %1").arg(attribute(request, "name")),
                    tr("ECU: %1").arg(attribute(request.parent(), "name"))};
  if (data.attribute("device")) {
    const bool failure = data.attributeOrEmpty("failure") == "1";
    lines << (failure ? tr("Device: %1 (failure)") : tr("Device: %1")).arg(attribute(data, "device"));
  }
  if (data.attribute("unit")) lines << tr("Unit: %1").arg(attribute(data, "unit"));
  if (data.attributeOrEmpty("mode") != "text")
    lines << tr("Range: %1 to %2").arg(number(data, "min"), number(data, "max"));
  int values = 0;
  XmlElement item = data.firstChild("enumeration").firstChild("item");
  for (; item && values < kMostValues; item = item.nextSibling("item"), ++values)
    lines << tr("%1 = %2").arg(attribute(item, "v"), attribute(item, "l"));
  if (item) lines << tr("...");
  return lines.join("<br>");
}

QString DataToolTip::ofEcu(XmlElement uce) {
  return heading(uce) + "<br>" + tr("Function: %1").arg(attribute(uce, "function")) + "<br>" +
         tr("Address: %1").arg(attribute(uce, "address"));
}

QString DataToolTip::ofRequest(XmlElement request) {
  int count = 0;
  for (XmlElement data = request.firstChild("data"); data; data = data.nextSibling("data")) ++count;
  return heading(request) + "<br>" + (count == 1 ? tr("1 data") : tr("%1 data").arg(count));
}

}  // namespace tarnlog
