#include "platform/checksum.h"

#include <gtest/gtest.h>

#include <string_view>

TEST(Checksum, IsThePublishedOne) {
  const std::string_view abc = "abc";
  EXPECT_EQ("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad",
            platform::Sha256(std::as_bytes(std::span(abc))));
}
