#pragma once

namespace quorvale {

inline constexpr char kCompanyName[] = "Halvern Inc.";
inline constexpr char kProductName[] = "Quorvale Customizable Screen Saver";
// The title of a message box that has none of its own.
inline constexpr char kApplicationTitle[] = "Quorvale";

}  // namespace quorvale
