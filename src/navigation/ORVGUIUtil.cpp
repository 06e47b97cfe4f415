#include "gui/ORVGUIUtil.h"

#include <algorithm>

#include "base/Log.h"

namespace ORVLib::Gui {

namespace {

/// Functions that share a page, by their first and last ID.
struct Entry {
    short first;
    short last;
    char path[48];
};

// clang-format off
constexpr Entry ENTRIES[] = {
    {  3,   3, "/system/sys_status.cgi"},
    {  4,   4, "/system/sel_config.cgi"},
    {  7,   7, "/system/sel_filtering.cgi"},
    {  8,   8, "/system/sys_info.cgi"},
    {  9,   9, "/system/system_config.cgi"},
    { 10,  10, "/system/power_control.cgi"},
    { 11,  11, "/system/led_config.cgi"},
    { 12,  12, "/system/power_supply_unit.cgi"},
    { 13,  14, "/system/fan_config.cgi"},
    { 15,  15, "/system/temperature_unit.cgi"},
    { 16,  16, "/system/sb_config.cgi"},
    { 17,  17, "/system/iob_config.cgi"},
    { 22,  22, "/system/otherboard_config.cgi"},
    { 23,  23, "/system/orv_config.cgi"},
    { 26,  26, "/system/pcibox_config.cgi"},
    { 27,  27, "/system/firmware_info.cgi"},
    { 28,  28, "/system/sb_config.cgi"},
    { 29,  29, "/system/sel_detail.cgi"},
    { 30,  30, "/partition/power_control.cgi"},
    { 31,  34, "/partition/schedule_set.cgi"},
    { 35,  35, "/partition/usb_sw.cgi"},
    { 36,  36, "/partition/remote_kvms_cr_setup.cgi"},
    { 37,  37, "/partition/part_config.cgi"},
    { 38,  40, "/partition/node_add_remove.cgi"},
    { 41,  41, "/partition/sb_split.cgi"},
    { 42,  42, "/partition/iou_split.cgi"},
    { 43,  43, "/partition/spare_config.cgi"},
    { 44,  44, "/partition/part_info.cgi"},
    { 45,  45, "/partition/boot_control.cgi"},
    { 46,  46, "/partition/asr_control.cgi"},
    { 47,  47, "/partition/remote_kvms_cr.cgi"},
    { 48,  48, "/partition/vfpd.cgi"},
    { 49,  49, "/partition/mode.cgi"},
    { 60,  62, "/user/list.cgi"},
    { 63,  63, "/user/ch_passwd.cgi"},
    { 64,  64, "/user/who.cgi"},
    { 70,  70, "/network/orv_time_set.cgi"},
    { 72,  72, "/network/orv_ip_set.cgi"},
    { 73,  73, "/network/orv_lanport_set.cgi"},
    { 74,  74, "/network/orv_protocol_set.cgi"},
    { 75,  75, "/network/orv_refresh_set.cgi"},
    { 76,  76, "/network/orv_snmp_set.cgi"},
    { 77,  77, "/network/orv_snmptrap_set.cgi"},
    { 78,  78, "/network/orv_snmp_v3_set.cgi"},
    { 79,  79, "/network/ssl_create_csr.cgi"},
    { 80,  80, "/network/ssl_complete_csr.cgi"},
    { 81,  81, "/network/ssl_export.cgi"},
    { 82,  82, "/network/ssl_import.cgi"},
    { 83,  83, "/network/ssl_create_self.cgi"},
    { 84,  84, "/network/ssh_server_key.cgi"},
    { 85,  85, "/network/ssh_key_complete.cgi"},
    { 86,  87, "/network/remote_server_mng.cgi"},
    { 88,  90, "/network/orv_acl_set.cgi"},
    { 92,  92, "/network/orv_smtp_set.cgi"},
    { 93,  93, "/network/alarm_email_filtering.cgi"},
    { 95,  95, "/common/progress.cgi"},
    {100, 100, "/maintenance/orv_firmup.cgi"},
    {103, 103, "/maintenance/bmc_firmup.cgi"},
    {104, 104, "/maintenance/orv_backup_restore.cgi"},
    {105, 106, "/maintenance/efi_backup_restore.cgi"},
    {107, 107, "/maintenance/maintenance_menu.cgi"},
    {108, 108, "/maintenance/maintenance_mode.cgi"},
    {109, 109, "/maintenance/maintenance_unit.cgi"},
    {110, 110, "/maintenance/maintenance_unit_num_select.cgi"},
    {112, 112, "/maintenance/bios_firmup.cgi"},
    {113, 113, "/maintenance/maintenance_status.cgi"},
    {114, 114, "/maintenance/maintenance_log.cgi"},
    {115, 115, "/maintenance/maintenance_complete.cgi"},
    {116, 117, "/maintenance/maintenance_status.cgi"},
    {118, 118, "/maintenance/maintenance_replace.cgi"},
    {119, 120, "/maintenance/maintenance_power.cgi"},
    {121, 121, "/maintenance/maintenance_replace_chk.cgi"},
    {122, 122, "/maintenance/maintenance_firmup.cgi"},
    {123, 123, "/maintenance/maintenance_other.cgi"},
    {124, 124, "/maintenance/maintenance_release.cgi"},
    {125, 125, "/maintenance/maintenance_work.cgi"},
    {126, 126, "/maintenance/maintenance_other_firm.cgi"},
    {127, 127, "/maintenance/timezone_update.cgi"},
    {128, 128, "/maintenance/maintenance_wait.cgi"},
    {129, 129, "/maintenance/login_options.cgi"},
    {130, 130, "/maintenance/login_fileup.cgi"},
    {131, 131, "/system/fanb_config.cgi"},
    {132, 132, "/system/pdb_config.cgi"},
    {134, 134, "/system/pdbs_config.cgi"},
    {137, 137, "/system/otherboard_config.cgi"},
    {138, 139, "/system/bb_config.cgi"},
    {140, 140, "/system/gspb_config.cgi"},
    {141, 141, "/maintenance/login_options.cgi"},
    {142, 142, "/maintenance/mainte_status_clear.cgi"},
    {143, 143, "/maintenance/maintenance_area.cgi"},
    {144, 144, "/maintenance/maintenance_status.cgi"},
    {145, 145, "/maintenance/all_firmup.cgi"},
    {148, 148, "/maintenance/maintenance_sbwait.cgi"},
    {149, 149, "/maintenance/maintenance_cr_setup.cgi"},
    {150, 150, "/maintenance/maintenance_cr.cgi"},
    {152, 152, "/system/sel_collect.cgi"},
    {153, 153, "/system/pel.cgi"},
    {154, 154, "/system/pel_filter.cgi"},
};
// clang-format on

}  // namespace

ORVGUIUtil::~ORVGUIUtil() = default;

std::string ORVGUIUtil::getCGIPath(int functionId) {
    const auto* const end = std::end(ENTRIES);
    const auto* const entry = std::find_if(std::begin(ENTRIES), end, [functionId](const Entry& e) {
        return functionId >= e.first && functionId <= e.last;
    });
    if (entry != end) {
        return entry->path;
    }
    Log::putText(Log::GUI_UTIL, Log::PROTOCOL_LEVEL, LogText::BAD_NUMBER, "Illegal function ID",
                 functionId);
    return "";
}

}  // namespace ORVLib::Gui
