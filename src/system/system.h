#pragma once

namespace quorvale {

class FileSystem;
class HostSystem;
class PasswordSystem;
class Programs;
class Registry;
class SoundPlayer;
class WindowSystem;

// The operating system, as a platform hands it over. The platform owns the objects.
struct System {
  Registry& registry;
  FileSystem& files;
  WindowSystem& windows;
  SoundPlayer& sound;
  Programs& programs;
  HostSystem& host;
  PasswordSystem& password;
};

}  // namespace quorvale
