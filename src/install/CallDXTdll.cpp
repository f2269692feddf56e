#include "install/CallDXTdll.h"

#include "install/BitmapFunctions.h"
#include "install/mod_CloudComposer.h"
#include "platform/files.h"
#include "platform/qvdds.h"

namespace nimbrel {

void CompressCumulus(std::string_view color_name, std::string_view alpha_name,
                     std::string_view output_name, bool flag, std::int32_t format) {
  const std::string color = TempBitmapFile(color_name);
  const std::string alpha = TempBitmapFile(alpha_name);
  const auto passed_on = static_cast<std::int16_t>(flag ? -1 : 0);
  const std::int32_t made = platform::BMPScompressBMP(color, alpha, format, passed_on, passed_on,
                                                      TempBitmapFile(output_name));
  // Both sheets are fresh from the composer: nothing but a file can fail.
  NoteSheet(made != 0 ? platform::FileStatus::kOk : platform::FileStatus::kOther);
  ReleaseSheets();
  platform::DeleteFile(color);
  platform::DeleteFile(alpha);
}

}  // namespace nimbrel
