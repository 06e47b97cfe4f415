#pragma once

/// The fixed paths of the site. A development build puts its own folder before them. Only the
/// sources that include this header are compiled with that folder.
#ifndef ORVGUI_SITE_ROOT
#error "Compile this source with ORVGUI_SITE_ROOT, empty for anything installed"
#endif

namespace ORVLib::Gui::SitePaths {

constexpr char CATALOGUE_JAPANESE[] = ORVGUI_SITE_ROOT "/etc/orv/trace/cgistr.out";
constexpr char CATALOGUE_ENGLISH[] = ORVGUI_SITE_ROOT "/etc/orv/trace/cgistrj.out";

constexpr char SKELETON_TOP[] = ORVGUI_SITE_ROOT "/usr/local/www/skel/skeleton_top.txt";
constexpr char SKELETON_LOGIN_WAIT[] =
    ORVGUI_SITE_ROOT "/usr/local/www/skel/skeleton_login_wait.txt";
constexpr char SKELETON_COMPLETE[] =
    ORVGUI_SITE_ROOT "/usr/local/www/skel/skeleton_config_cmpl.txt";
constexpr char SKELETON_ERR[] = ORVGUI_SITE_ROOT "/usr/local/www/skel/skeleton_err.txt";

}  // namespace ORVLib::Gui::SitePaths
