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
    <name>DeleteFileDialog</name>
    <message>
        <source>Delete file</source>
        <translation>删除文件</translation>
    </message>
    <message>
        <source>Are you sure to delete file %1 ?</source>
        <translation>确定要删除文件“%1”吗？</translation>
    </message>
    <message numerus="yes">
        <source>Are you sure to delete %n file(s) ?</source>
        <translation>
            <numerusform>确定要删除 %n 个文件吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>The file will into the system recycle bin after delete.</source>
        <translation>删除后，文件将进入系统回收站。</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>DocumentKind</name>
    <message>
        <source>Documents</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Sheets</source>
        <translation>表格</translation>
    </message>
    <message>
        <source>Slides</source>
        <translation>演示</translation>
    </message>
    <message>
        <source>PDF</source>
        <translation>PDF</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Audio and video</source>
        <translation>音频和视频</translation>
    </message>
    <message>
        <source>Archives</source>
        <translation>压缩包</translation>
    </message>
    <message>
        <source>Other files</source>
        <translation>其他文件</translation>
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
    <name>KRecentFileMenu</name>
    <message>
        <source>Actions for the document</source>
        <translation>文档操作</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>打开方式</translation>
    </message>
    <message>
        <source>Looking for programs…</source>
        <translation>正在查找程序…</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>打开所在文件夹</translation>
    </message>
    <message>
        <source>share doc</source>
        <translation>分享文档</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>取消置顶</translation>
    </message>
    <message>
        <source>Pin to Top</source>
        <translation>置顶</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Delete File</source>
        <translation>删除文件</translation>
    </message>
    <message>
        <source>Tip-Off</source>
        <translation>举报</translation>
    </message>
    <message>
        <source>%1 (default)</source>
        <translation>%1（默认）</translation>
    </message>
    <message>
        <source>No program found</source>
        <translation>未找到程序</translation>
    </message>
</context>
<context>
    <name>KRecentFileTitleMenu</name>
    <message>
        <source>clear all of unread msg</source>
        <translation>清除所有未读消息</translation>
    </message>
    <message>
        <source>More for recent files</source>
        <translation>最近文件的更多操作</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>close reminder</source>
        <translation>关闭提醒</translation>
    </message>
    <message>
        <source>open reminder</source>
        <translation>打开提醒</translation>
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
    <name>RecentFilterBar</name>
    <message>
        <source>Kind of document</source>
        <translation>文档类型</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
</context>
<context>
    <name>RecentNothingFoundWidget</name>
    <message>
        <source>Nothing found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>No recent file has this name or is of this kind.</source>
        <translation>没有符合此名称或类型的最近文件。</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>显示全部</translation>
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
    <name>RecentSections</name>
    <message>
        <source>Others</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>已置顶</translation>
    </message>
</context>
<context>
    <name>RecentSortMenu</name>
    <message>
        <source>Order of the list</source>
        <translation>列表排序</translation>
    </message>
    <message>
        <source>Last opened</source>
        <translation>最近打开</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>从新到旧</translation>
    </message>
    <message>
        <source>Oldest first</source>
        <translation>从旧到新</translation>
    </message>
    <message>
        <source>Largest first</source>
        <translation>从大到小</translation>
    </message>
    <message>
        <source>Smallest first</source>
        <translation>从小到大</translation>
    </message>
    <message>
        <source>A to Z</source>
        <translation>升序</translation>
    </message>
    <message>
        <source>Z to A</source>
        <translation>降序</translation>
    </message>
</context>
<context>
    <name>RemoveRecordDialog</name>
    <message>
        <source>Remove record</source>
        <translation>移除记录</translation>
    </message>
    <message>
        <source>Are you sure to remove %1 record ?</source>
        <translation>确定要移除“%1”的记录吗？</translation>
    </message>
    <message numerus="yes">
        <source>Are you sure to remove %n record(s) ?</source>
        <translation>
            <numerusform>确定要移除 %n 条记录吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove record then file will not delete from disk</source>
        <translation>移除记录后，文件不会从磁盘上删除</translation>
    </message>
    <message>
        <source>Remove record then file will not apperar to list</source>
        <translation>移除记录后，文件不会再出现在列表中</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>ShareDialog</name>
    <message>
        <source>Share document</source>
        <translation>分享文档</translation>
    </message>
    <message>
        <source>Share “%1”</source>
        <translation>分享“%1”</translation>
    </message>
    <message>
        <source>This document is on another device only. Share it from there, or open it here first.</source>
        <translation>此文档仅在其他设备上。请在该设备上分享，或先在此处打开。</translation>
    </message>
    <message>
        <source>Copy the file</source>
        <translation>复制文件</translation>
    </message>
    <message>
        <source>Then paste it into a chat, a mail or a folder.</source>
        <translation>然后粘贴到聊天、邮件或文件夹中。</translation>
    </message>
    <message>
        <source>Copy its path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>For somebody who reaches the same folder.</source>
        <translation>发给能访问同一文件夹的人。</translation>
    </message>
    <message>
        <source>Show it in its folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>To drag it from there, or to pack it.</source>
        <translation>便于从那里拖动或打包。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
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
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Last used</source>
        <translation>上次使用</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>label and value</comment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>分享</translation>
    </message>
    <message>
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message>
        <source>On %1</source>
        <translation>在 %1 上</translation>
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
    <message>
        <source>Open a File…</source>
        <translation>打开文件…</translation>
    </message>
    <message>
        <source>Documents that you open appear here, newest first. Sign in to see those of your other devices as well.</source>
        <translation>您打开的文档会按时间先后显示在这里。登录后还可以看到其他设备上的文档。</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Documents that you open appear here, newest first. Those of your other devices appear once you switch that on.</source>
        <translation>您打开的文档会按时间先后显示在这里。开启后还会显示其他设备上的文档。</translation>
    </message>
    <message>
        <source>Switch On</source>
        <translation>开启</translation>
    </message>
</context>
<context>
    <name>ZelBoxRecentFileGuideDialog</name>
    <message>
        <source>Files of other devices</source>
        <translation>其他设备上的文件</translation>
    </message>
    <message>
        <source>One list for all your devices</source>
        <translation>所有设备，一个列表</translation>
    </message>
    <message>
        <source>When you open a document on another device that is signed in to the same cloud, it appears in this list, marked as new or modified until you have seen it.</source>
        <translation>在登录同一云账号的其他设备上打开文档后，该文档会出现在此列表中，并标记为新增或已修改，直到您查看为止。</translation>
    </message>
    <message>
        <source>The cloud service keeps the names and places of these documents. Without a server of your own, they stay on this computer.</source>
        <translation>云服务会保存这些文档的名称和位置。如果没有您自己的服务器，它们只保存在这台计算机上。</translation>
    </message>
    <message>
        <source>Got It</source>
        <translation>知道了</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
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
        <source>%1
Last used on %2</source>
        <translation>%1
上次在“%2”上使用</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>已置顶</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>已丢失</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新增</translation>
    </message>
    <message>
        <source>Modify</source>
        <translation>已修改</translation>
    </message>
    <message>
        <source>On %1</source>
        <translation>在“%1”上</translation>
    </message>
</context>
<context>
    <name>ZelBoxRecentFileRoamingGuideWidget</name>
    <message>
        <source>Files that you open on your other devices can appear here as well.</source>
        <translation>您在其他设备上打开的文件也可以显示在这里。</translation>
    </message>
    <message>
        <source>Switch On</source>
        <translation>开启</translation>
    </message>
    <message>
        <source>How It Works</source>
        <translation>了解详情</translation>
    </message>
    <message>
        <source>Close notice</source>
        <translation>关闭提示</translation>
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
    <message>
        <source>Find</source>
        <translation>查找</translation>
    </message>
    <message>
        <source>Find in recent files</source>
        <translation>在最近文件中查找</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>排序</translation>
    </message>
    <message>
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message numerus="yes">
        <source>%n unread</source>
        <translation>
            <numerusform>%n 个未读</numerusform>
        </translation>
    </message>
    <message>
        <source>Mark all as seen</source>
        <translation>全部标为已看</translation>
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
    <message>
        <source>The folder is no longer there.</source>
        <translation>文件夹已不存在。</translation>
    </message>
    <message>
        <source>The folder cannot be shown.</source>
        <translation>无法显示文件夹。</translation>
    </message>
    <message numerus="yes">
        <source>At most %n documents are opened at once.</source>
        <translation>
            <numerusform>一次最多打开 %n 个文档。</numerusform>
        </translation>
    </message>
    <message>
        <source>The document was reported.</source>
        <translation>已举报该文档。</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be deleted.</source>
        <translation>
            <numerusform>%n 个文件无法删除。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) moved to the recycle bin.</source>
        <translation>
            <numerusform>已将 %n 个文件移到回收站。</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) could not be brought back.</source>
        <translation>
            <numerusform>%n 个文件无法恢复。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) brought back.</source>
        <translation>
            <numerusform>已恢复 %n 个文件。</numerusform>
        </translation>
    </message>
    <message>
        <source>The file is on the clipboard.</source>
        <translation>文件已复制到剪贴板。</translation>
    </message>
    <message>
        <source>The path is on the clipboard.</source>
        <translation>路径已复制到剪贴板。</translation>
    </message>
    <message>
        <source>Open a File</source>
        <translation>打开文件</translation>
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