#pragma once

namespace platform {
class FileSystem;
}

namespace toolkit {

/// The toolkit's way to files. It reads only.
platform::FileSystem& Files();

}  // namespace toolkit
