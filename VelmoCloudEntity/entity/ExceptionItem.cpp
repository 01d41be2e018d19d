#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>

namespace VelmoCloudEntity {

using PerchAppLibrary::BaseExceptionEntity;

namespace {

struct Row {
    std::string_view code;
    const char* chinese;
    const char* english;
};

constexpr std::array rows{
    Row{"000000", "访问受限", "Access rejected."},
    Row{"000001", "数据解析失败", "Data parse fail."},
    Row{"000002", "认证失败", "Authentication fail."},
    Row{"000003", "后台处理异常", "Background exception."},
    Row{"001001", "", ""},
    Row{"002001", "手机号无效", "Phone number is invalid."},
    Row{"002002", "手机号不存在", "Phone number no exists."},
    Row{"002003", "验证码发送失败", "Code sent fail."},
    Row{"002004", "验证码记录失败", "Code record fail."},
    Row{"002005", "手机号已存在", "Phone number exists."},
    Row{"003001", "邮箱地址无效", "Email is invalid."},
    Row{"003002", "邮箱不存在", "Email no exists."},
    Row{"003003", "验证码发送失败", "Code sent fail."},
    Row{"003004", "验证码记录失败", "Code record fail."},
    Row{"003005", "邮箱已存在", "Email exists."},
    Row{"004001", "会员试用过期", "Membership trial out of date."},
    Row{"004002", "已经是试用会员", "Membership trial."},
    Row{"004003", "会员到期时间戳格式错误", "MemberLimitTimeStamp format error."},
    Row{"004004", "未绑定有效手机号", "No valid phone number is bound."},
    Row{"004005", "手机号已有会员信息", "The phone number has member information."},
    Row{"005001", "登录过期", "The user login has expired."},
    Row{"005002", "已在其他设备登录", "Logged in on another device."},
    Row{"006001", "目标QQ已占用", "QQ used."},
    Row{"006002", "目标QQ已占用", "QQ used."},
    Row{"006003", "目标微信已占用", "微信 used."},
    Row{"006004", "目标微信已占用", "微信 used."},
};

static_assert(std::ranges::adjacent_find(rows, std::ranges::greater_equal(), &Row::code) ==
                  rows.end(),
              "Each code comes once, in ascending order");

ExceptionItem::Table makeTable() {
    ExceptionItem::Table table;
    for (const Row& row : rows) {
        const std::string code(row.code);
        table.emplace(code, std::make_shared<BaseExceptionEntity>(
                                code, std::map<std::string, std::string>{{"Ch", row.chinese},
                                                                         {"En", row.english}}));
    }
    return table;
}

} // namespace

ExceptionItem::ExceptionItem() : m_Dict(makeTable()) {}

} // namespace VelmoCloudEntity
