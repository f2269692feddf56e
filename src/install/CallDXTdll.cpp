#include "install/CallDXTdll.h"

#include "install/WorkBitmaps.h"
#include "platform/FileSystem.h"
#include "platform/qvdds.h"

namespace nimbrel {

platform::FileStatus CompressCumulus(const Folders& folders, platform::FileSystem& files,
                                     std::string_view color_name, std::string_view alpha_name,
                                     std::string_view output_name, bool flag, std::int32_t format) {
  const std::string color = TempBitmapFile(folders, color_name);
  const std::string alpha = TempBitmapFile(folders, alpha_name);
  const auto passed_on = static_cast<std::int16_t>(flag ? -1 : 0);
  const std::int32_t made = platform::BMPScompressBMP(color, alpha, format, passed_on, passed_on,
                                                      TempBitmapFile(folders, output_name), files);
  files.DeleteFile(color);
  files.DeleteFile(alpha);
  return made != 0 ? platform::FileStatus::kOk : platform::FileStatus::kOther;
}

}  // namespace nimbrel
