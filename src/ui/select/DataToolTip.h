#pragma once

#include <QCoreApplication>
#include <QString>

#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// What the session document says of an element, for a tool tip.
class DataToolTip {
  Q_DECLARE_TR_FUNCTIONS(DataToolTip)

 public:
  /// Name, request, ECU, device, unit, range and named values of a data element.
  static QString ofData(XmlElement data);
  /// Name, function and address of an ECU; name and number of data of a request.
  static QString ofEcu(XmlElement uce);
  static QString ofRequest(XmlElement request);
};

}  // namespace tarnlog
