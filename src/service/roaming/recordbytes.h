#pragma once

#include <QByteArray>

namespace apache::thrift {
class TBase;
}

namespace zel::service {

/// Wire records as bytes in a database: they keep fields of later versions apart from those of today by
/// number, so that no table has to change with them. Any thread.
QByteArray recordBytes(const apache::thrift::TBase &record);
bool readRecord(const QByteArray &bytes, apache::thrift::TBase &record); ///< false when damaged; never throws

} // namespace zel::service
