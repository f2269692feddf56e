#include <QCryptographicHash>

#include "platform/checksum.h"

namespace platform {

std::string Sha256(std::span<const std::byte> bytes) {
  const QByteArray view = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                                  static_cast<qsizetype>(bytes.size()));
  return QCryptographicHash::hash(view, QCryptographicHash::Sha256).toHex().toStdString();
}

}  // namespace platform
