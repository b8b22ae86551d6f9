<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
    <context>
        <name>CloudSettingsWidget</name>
        <message>
            <source>Appearance</source>
            <translation>外观</translation>
        </message>
        <message>
            <source>When the window is closed</source>
            <translation>关闭窗口时</translation>
        </message>
        <message>
            <source>Privacy</source>
            <translation>隐私</translation>
        </message>
        <message>
            <source>Like the desktop</source>
            <translation>跟随桌面</translation>
        </message>
        <message>
            <source>Light</source>
            <translation>浅色</translation>
        </message>
        <message>
            <source>Dark</source>
            <translation>深色</translation>
        </message>
        <message>
            <source>Keep running if there is a tray, else ask</source>
            <translation>有系统托盘时继续运行，否则询问</translation>
        </message>
        <message>
            <source>Keep running</source>
            <translation>继续运行</translation>
        </message>
        <message>
            <source>Ask</source>
            <translation>询问</translation>
        </message>
        <message>
            <source>Write usage events to a file on this computer</source>
            <translation>将使用事件记录到本机文件</translation>
        </message>
        <message>
            <source>The file never leaves this computer.</source>
            <translation>该文件不会离开本机。</translation>
        </message>
        <message>
            <source>Everything stays on this computer. Connecting a cloud server comes with a later version.</source>
            <translation>所有内容都保存在本机。后续版本将支持连接云服务器。</translation>
        </message>
        <message>
            <source>Cloud</source>
            <translation>云服务</translation>
        </message>
    </context>
    <context>
        <name>FolderSelectorDlg</name>
        <message>
            <source>Select folder</source>
            <translation>选择文件夹</translation>
        </message>
        <message>
            <source>Select a folder</source>
            <translation>选择一个文件夹</translation>
        </message>
        <message>
            <source>Folders</source>
            <translation>文件夹</translation>
        </message>
        <message>
            <source>Folder path</source>
            <translation>文件夹路径</translation>
        </message>
        <message>
            <source>Open</source>
            <translation>打开</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>取消</translation>
        </message>
        <message>
            <source>This folder cannot be opened.</source>
            <translation>无法打开此文件夹。</translation>
        </message>
    </context>
    <context>
        <name>InlineNotice</name>
        <message>
            <source>Close notice</source>
            <translation>关闭提示</translation>
        </message>
    </context>
    <context>
        <name>KCefLoadingProgressDlg</name>
        <message>
            <source>ZEL Box</source>
            <translation>ZEL Box</translation>
        </message>
        <message>
            <source>Loading progress</source>
            <translation>加载进度</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>取消</translation>
        </message>
        <message>
            <source>Continue without</source>
            <translation>不使用并继续</translation>
        </message>
        <message>
            <source>Continue without the web component</source>
            <translation>不使用网页组件并继续</translation>
        </message>
        <message>
            <source>Loading the component that shows web pages…</source>
            <translation>正在加载网页组件…</translation>
        </message>
        <message>
            <source>The component that shows web pages is not installed. Some pages will stay empty.</source>
            <translation>未安装网页组件，部分页面将为空。</translation>
        </message>
        <message>
            <source>The component that shows web pages could not be loaded. Some pages will stay empty.</source>
            <translation>无法加载网页组件，部分页面将为空。</translation>
        </message>
    </context>
    <context>
        <name>KWindowRestoreMaxButton</name>
        <message>
            <source>Restore</source>
            <translation>还原</translation>
        </message>
        <message>
            <source>Maximize</source>
            <translation>最大化</translation>
        </message>
    </context>
    <context>
        <name>KZelBoxCloudSettingsDlg</name>
        <message>
            <source>Settings</source>
            <translation>设置</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>关闭</translation>
        </message>
    </context>
    <context>
        <name>KZelBoxWindowTitleButtonGroup</name>
        <message>
            <source>Minimize</source>
            <translation>最小化</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>关闭</translation>
        </message>
    </context>
    <context>
        <name>LoadingIndicator</name>
        <message>
            <source>Loading recent files</source>
            <translation>正在加载最近文件</translation>
        </message>
    </context>
    <context>
        <name>Navigation</name>
        <message>
            <source>Recent</source>
            <translation>最近</translation>
        </message>
        <message>
            <source>Cloud documents</source>
            <translation>云文档</translation>
        </message>
        <message>
            <source>Your cloud documents will be listed here in a coming version.</source>
            <translation>您的云文档将在后续版本中显示在这里。</translation>
        </message>
        <message>
            <source>Team folders</source>
            <translation>团队文件夹</translation>
        </message>
        <message>
            <source>Folders shared with your team will be listed here in a coming version.</source>
            <translation>与团队共享的文件夹将在后续版本中显示在这里。</translation>
        </message>
        <message>
            <source>Messages</source>
            <translation>消息</translation>
        </message>
        <message>
            <source>Messages about your documents will be listed here in a coming version.</source>
            <translation>与您的文档有关的消息将在后续版本中显示在这里。</translation>
        </message>
        <message>
            <source>File radar</source>
            <translation>文件雷达</translation>
        </message>
        <message>
            <source>Received and downloaded files will be listed here in a coming version.</source>
            <translation>接收和下载的文件将在后续版本中显示在这里。</translation>
        </message>
        <message>
            <source>Channels</source>
            <translation>频道</translation>
        </message>
        <message>
            <source>Message channels will be listed here in a coming version.</source>
            <translation>消息频道将在后续版本中显示在这里。</translation>
        </message>
        <message>
            <source>Desktop sync</source>
            <translation>桌面同步</translation>
        </message>
        <message>
            <source>The state of your synchronised desktop will be shown here in a coming version.</source>
            <translation>桌面同步状态将在后续版本中显示在这里。</translation>
        </message>
    </context>
    <context>
        <name>NavigationBar</name>
        <message numerus="yes">
            <source>%n unread</source>
            <translation>
                <numerusform>%n 条未读</numerusform>
            </translation>
        </message>
        <message>
            <source>Pages</source>
            <translation>页面</translation>
        </message>
    </context>
    <context>
        <name>RecentPicker</name>
        <message>
            <source>Search recent documents</source>
            <translation>搜索最近文档</translation>
        </message>
        <message>
            <source>Recent documents</source>
            <translation>最近文档</translation>
        </message>
        <message>
            <source>This document cannot be opened.</source>
            <translation>无法打开此文档。</translation>
        </message>
        <message>
            <source>Documents that you open will be listed here.</source>
            <translation>您打开的文档将显示在这里。</translation>
        </message>
        <message>
            <source>No recent document has this name.</source>
            <translation>没有符合此名称的最近文档。</translation>
        </message>
    </context>
    <context>
        <name>SyncFolderDlg</name>
        <message>
            <source>Synchronise folder</source>
            <translation>同步文件夹</translation>
        </message>
        <message>
            <source>Synchronise a folder</source>
            <translation>同步一个文件夹</translation>
        </message>
        <message>
            <source>Open folder</source>
            <translation>打开文件夹</translation>
        </message>
        <message>
            <source>Folder path</source>
            <translation>文件夹路径</translation>
        </message>
        <message>
            <source>No cloud account is connected, so this folder stays on this computer only.</source>
            <translation>尚未连接云账户，此文件夹仅保存在本机。</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>关闭</translation>
        </message>
        <message>
            <source>No folder was named.</source>
            <translation>未指定文件夹。</translation>
        </message>
        <message>
            <source>Problem</source>
            <translation>问题</translation>
        </message>
        <message>
            <source>This folder cannot be opened.</source>
            <translation>无法打开此文件夹。</translation>
        </message>
    </context>
    <context>
        <name>TimeGroups</name>
        <message>
            <source>Today</source>
            <translation>今天</translation>
        </message>
        <message>
            <source>Yesterday</source>
            <translation>昨天</translation>
        </message>
        <message>
            <source>This Week</source>
            <translation>本周</translation>
        </message>
        <message>
            <source>This Month</source>
            <translation>本月</translation>
        </message>
        <message>
            <source>%1 Month</source>
            <translation>%1月</translation>
        </message>
        <message>
            <source>%1 Year %2 Month</source>
            <translation>%1年%2月</translation>
        </message>
    </context>
    <context>
        <name>TimeTexts</name>
        <message>
            <source>yesterday</source>
            <translation>昨天</translation>
        </message>
        <message>
            <source>%1month%2day</source>
            <translation>%1月%2日</translation>
        </message>
    </context>
    <context>
        <name>TitleBar</name>
        <message>
            <source>Menu</source>
            <translation>菜单</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxExitDialog</name>
        <message>
            <source>Exit</source>
            <translation>退出</translation>
        </message>
        <message>
            <source>Exit ZEL Box?</source>
            <translation>退出 ZEL Box？</translation>
        </message>
        <message>
            <source>Always keep running when the window is closed</source>
            <translation>关闭窗口时始终继续运行</translation>
        </message>
        <message>
            <source>In the background, ZEL Box keeps your list of recent documents current. Start it again to bring its window back.</source>
            <translation>在后台，ZEL Box 会持续更新最近文档列表。再次启动即可重新显示窗口。</translation>
        </message>
        <message>
            <source>Keep running</source>
            <translation>继续运行</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>取消</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxLoadingOuttimeWidget</name>
        <message>
            <source>This takes longer than usual</source>
            <translation>加载时间比平时长</translation>
        </message>
        <message>
            <source>The list of recent files could not be loaded yet.</source>
            <translation>暂时无法加载最近文件列表。</translation>
        </message>
        <message>
            <source>Retry</source>
            <translation>重试</translation>
        </message>
        <message>
            <source>Feedback</source>
            <translation>反馈</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxLoginSpaceWidget</name>
        <message>
            <source>Used cloud space</source>
            <translation>已用云空间</translation>
        </message>
        <message>
            <source>More space</source>
            <translation>扩容</translation>
        </message>
        <message>
            <source>%1 used</source>
            <translation>已用 %1</translation>
        </message>
        <message>
            <source>%1 of %2 used</source>
            <translation>已用 %1，共 %2</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxMainWindowMenu</name>
        <message>
            <source>Main menu</source>
            <translation>主菜单</translation>
        </message>
        <message>
            <source>Cloud documents</source>
            <translation>云文档</translation>
        </message>
        <message>
            <source>Cloud website</source>
            <translation>云网站</translation>
        </message>
        <message>
            <source>Transfers</source>
            <translation>传输列表</translation>
        </message>
        <message>
            <source>Upgrade membership</source>
            <translation>升级会员</translation>
        </message>
        <message>
            <source>Settings</source>
            <translation>设置</translation>
        </message>
        <message>
            <source>Sign out</source>
            <translation>退出登录</translation>
        </message>
        <message>
            <source>Exit</source>
            <translation>退出</translation>
        </message>
        <message>
            <source>On this computer only</source>
            <translation>仅保存在本机</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxMiniWidget</name>
        <message>
            <source>Quick search</source>
            <translation>快速搜索</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxMiniWindow</name>
        <message>
            <source>Mini window</source>
            <translation>迷你窗口</translation>
        </message>
        <message>
            <source>Open ZEL Box</source>
            <translation>打开 ZEL Box</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxRecentFileDelegate</name>
        <message>
            <source>On another device</source>
            <translation>在其他设备上</translation>
        </message>
        <message>
            <source>Missing</source>
            <translation>文件不存在</translation>
        </message>
        <message>
            <source>New</source>
            <translation>新</translation>
        </message>
        <message>
            <source>Modify</source>
            <translation>已修改</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxRecentFileEmptyGuideWidget</name>
        <message>
            <source>No recent files yet</source>
            <translation>暂无最近文件</translation>
        </message>
        <message>
            <source>Documents that you open appear here, newest first.</source>
            <translation>您打开的文档会显示在这里，最新的在最前面。</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxRecentFileListView</name>
        <message>
            <source>Recent files</source>
            <translation>最近文件</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxRecentFileModel</name>
        <message>
            <source>Missing</source>
            <translation>文件不存在</translation>
        </message>
        <message>
            <source>New</source>
            <translation>新</translation>
        </message>
        <message>
            <source>Modify</source>
            <translation>已修改</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxRecentFileTitleWidget</name>
        <message>
            <source>Recent</source>
            <translation>最近</translation>
        </message>
        <message>
            <source>Number of files: %1</source>
            <translation>文件数：%1</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxRecentFileWidgetBase</name>
        <message>
            <source>This file is no longer there.</source>
            <translation>此文件已不存在。</translation>
        </message>
        <message>
            <source>You do not have permission to read this file.</source>
            <translation>您没有读取此文件的权限。</translation>
        </message>
        <message>
            <source>No program on this computer opens this kind of file.</source>
            <translation>本机没有可打开此类文件的程序。</translation>
        </message>
        <message>
            <source>This file is on another device only.</source>
            <translation>此文件仅在其他设备上。</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxSpaceBar</name>
        <message>
            <source>Cloud space</source>
            <translation>云空间</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxTray</name>
        <message>
            <source>Show ZEL Box</source>
            <translation>显示 ZEL Box</translation>
        </message>
        <message>
            <source>Mini window</source>
            <translation>迷你窗口</translation>
        </message>
        <message>
            <source>Settings</source>
            <translation>设置</translation>
        </message>
        <message>
            <source>Exit</source>
            <translation>退出</translation>
        </message>
        <message>
            <source>%1: %2</source>
            <translation>%1：%2</translation>
        </message>
    </context>
    <context>
        <name>ZelBoxUnLoginSpaceWidget</name>
        <message>
            <source>On this computer only</source>
            <translation>仅保存在本机</translation>
        </message>
        <message>
            <source>Connect a cloud</source>
            <translation>连接云服务</translation>
        </message>
    </context>
</TS>
