<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AboutPage</name>
    <message>
        <source>%1, Qt %2, %3</source>
        <translation>%1，Qt %2，%3</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>已复制。</translation>
    </message>
    <message>
        <source>This program</source>
        <translation>本程序</translation>
    </message>
    <message>
        <source>ZEL Box</source>
        <translation>ZEL Box</translation>
    </message>
    <message>
        <source>System</source>
        <translation>系统</translation>
    </message>
    <message>
        <source>What a server would be told</source>
        <translation>会告知服务器的内容</translation>
    </message>
    <message>
        <source>The version, this computer&apos;s name, and a number made from its network card, so that your devices can be told apart. Nothing is sent in this version.</source>
        <translation>版本、这台计算机的名称，以及由其网卡生成的编号，用来区分您的各台设备。此版本不会发送任何内容。</translation>
    </message>
    <message>
        <source>User agent</source>
        <translation>用户代理</translation>
    </message>
</context>
<context>
    <name>ActionTable</name>
    <message>
        <source>%1 (%2)</source>
        <comment>what a button does, its keys</comment>
        <translation>%1（%2）</translation>
    </message>
</context>
<context>
    <name>BreadcrumbBar</name>
    <message>
        <source>Path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>More folders of the path</source>
        <translation>路径中的更多文件夹</translation>
    </message>
    <message>
        <source>Cloud documents</source>
        <translation>云文档</translation>
    </message>
</context>
<context>
    <name>CloudColumns</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Modified</source>
        <translation>修改时间</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
</context>
<context>
    <name>CloudDocActions</name>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上一级</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Upload Files…</source>
        <translation>上传文件…</translation>
    </message>
    <message>
        <source>Upload Folder…</source>
        <translation>上传文件夹…</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Download…</source>
        <translation>下载…</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>打开所在文件夹</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Move to…</source>
        <translation>移动到…</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Move to Recycle Bin</source>
        <translation>移到回收站</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Move to another folder</source>
        <translation>移动到其他文件夹</translation>
    </message>
    <message>
        <source>Upload files</source>
        <translation>上传文件</translation>
    </message>
    <message>
        <source>Upload a folder</source>
        <translation>上传文件夹</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Undo the last removal, move or new name</source>
        <translation>撤销上一次移除、移动或重命名</translation>
    </message>
    <message>
        <source>To the folder above</source>
        <translation>转到上级文件夹</translation>
    </message>
    <message>
        <source>Cloud documents</source>
        <translation>云文档</translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln Item(s) to Recycle Bin</source>
        <translation>
            <numerusform>将 %Ln 个项目移到回收站</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudDocCommands</name>
    <message>
        <source>Download to</source>
        <translation>下载到</translation>
    </message>
    <message>
        <source>There are no files on the clipboard.</source>
        <translation>剪贴板中没有文件。</translation>
    </message>
    <message>
        <source>A folder cannot be moved into itself.</source>
        <translation>无法将文件夹移动到其自身中。</translation>
    </message>
    <message>
        <source>Upload a Folder</source>
        <translation>上传文件夹</translation>
    </message>
    <message>
        <source>Upload Files</source>
        <translation>上传文件</translation>
    </message>
    <message>
        <source>Actions for the selected documents</source>
        <translation>所选文档的操作</translation>
    </message>
    <message>
        <source>Actions for the folder</source>
        <translation>文件夹的操作</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
</context>
<context>
    <name>CloudDocDelegate</name>
    <message>
        <source>Modified: %1</source>
        <translation>修改时间：%1</translation>
    </message>
    <message>
        <source>Size: %1</source>
        <translation>大小：%1</translation>
    </message>
    <message>
        <source>New name</source>
        <translation>新名称</translation>
    </message>
    <message>
        <source>A name is needed.</source>
        <translation>请输入名称。</translation>
    </message>
    <message>
        <source>A name cannot contain “/”.</source>
        <translation>名称不能包含“/”。</translation>
    </message>
    <message>
        <source>This name is reserved for the drive itself.</source>
        <translation>此名称为云盘保留。</translation>
    </message>
    <message>
        <source>A name cannot contain line breaks or tabs.</source>
        <translation>名称不能包含换行符或制表符。</translation>
    </message>
    <message>
        <source>This name is too long.</source>
        <translation>名称过长。</translation>
    </message>
    <message>
        <source>This name is already taken here.</source>
        <translation>此处已有同名项目。</translation>
    </message>
</context>
<context>
    <name>CloudDocListView</name>
    <message>
        <source>Documents of the folder</source>
        <translation>文件夹中的文档</translation>
    </message>
</context>
<context>
    <name>CloudDocModel</name>
    <message>
        <source>waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>uploading, %1%</source>
        <translation>正在上传，%1%</translation>
    </message>
    <message>
        <source>downloading, %1%</source>
        <translation>正在下载，%1%</translation>
    </message>
    <message>
        <source>transfer failed</source>
        <translation>传输失败</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>modified %1</source>
        <translation>修改于 %1</translation>
    </message>
</context>
<context>
    <name>CloudDocNotices</name>
    <message numerus="yes">
        <source>%Ln item(s) could not be copied: their names cannot be stored.</source>
        <translation>
            <numerusform>%Ln 个项目未能复制：其名称无法保存。</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder “%1” is no longer there.</source>
        <translation>文件夹“%1”已不存在。</translation>
    </message>
    <message>
        <source>The cloud service is not reachable. What you see may be out of date.</source>
        <translation>无法连接云服务。当前显示的内容可能不是最新的。</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Undo Move</source>
        <translation>撤销移动</translation>
    </message>
    <message>
        <source>Undo Rename</source>
        <translation>撤销重命名</translation>
    </message>
    <message>
        <source>Undo Removal</source>
        <translation>撤销移除</translation>
    </message>
    <message>
        <source>“%1” is now called “%2”.</source>
        <translation>“%1”已重命名为“%2”。</translation>
    </message>
    <message>
        <source>“%1” was moved.</source>
        <translation>“%1”已移动。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) were moved.</source>
        <translation>
            <numerusform>%Ln 个项目已移动。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was moved to “%2”.</source>
        <translation>“%1”已移动到“%2”。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) were moved to “%1”.</source>
        <translation>
            <numerusform>%Ln 个项目已移动到“%1”。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was moved to the recycle bin.</source>
        <translation>“%1”已移至回收站。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) were moved to the recycle bin.</source>
        <translation>
            <numerusform>%Ln 个项目已移至回收站。</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo New Folder</source>
        <translation>撤销新建文件夹</translation>
    </message>
    <message>
        <source>The folder “%1” was created.</source>
        <translation>已新建文件夹“%1”。</translation>
    </message>
    <message>
        <source>The new folder “%1” was removed.</source>
        <translation>已移除新文件夹“%1”。</translation>
    </message>
    <message>
        <source>“%1” is called “%2” again.</source>
        <translation>“%1”已改回“%2”。</translation>
    </message>
    <message>
        <source>“%1” is back.</source>
        <translation>“%1”已恢复。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) are back.</source>
        <translation>
            <numerusform>%Ln 个项目已恢复。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is back in “%2”.</source>
        <translation>“%1”已恢复到“%2”。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) are back in “%1”.</source>
        <translation>
            <numerusform>%Ln 个项目已恢复到“%1”。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CloudDocStates</name>
    <message>
        <source>Loading the folder</source>
        <translation>正在加载文件夹</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>此文件夹为空</translation>
    </message>
    <message>
        <source>Drop files here, or upload them.</source>
        <translation>将文件拖到此处，或点击上传。</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>No document in this folder has a name that contains these words.</source>
        <translation>此文件夹中没有名称包含这些词的文档。</translation>
    </message>
    <message>
        <source>Cloud documents are not reachable</source>
        <translation>无法访问云文档</translation>
    </message>
    <message>
        <source>The cloud service does not answer. The page comes back by itself once it does.</source>
        <translation>云服务没有响应。恢复后页面会自动刷新。</translation>
    </message>
    <message>
        <source>This folder cannot be shown</source>
        <translation>无法显示此文件夹</translation>
    </message>
</context>
<context>
    <name>CloudDocToolBar</name>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>Opens a menu</source>
        <translation>打开菜单</translation>
    </message>
    <message>
        <source>Sort</source>
        <translation>排序</translation>
    </message>
</context>
<context>
    <name>CloudProblems</name>
    <message>
        <source>The folder could not be made.</source>
        <translation>无法新建文件夹。</translation>
    </message>
    <message>
        <source>The name could not be changed.</source>
        <translation>无法重命名。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be moved.</source>
        <translation>
            <numerusform>%Ln 个项目无法移动。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be copied.</source>
        <translation>
            <numerusform>%Ln 个项目无法复制。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be moved to the recycle bin.</source>
        <translation>
            <numerusform>%Ln 个项目无法移到回收站。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be brought back.</source>
        <translation>
            <numerusform>%Ln 个项目无法恢复。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be uploaded.</source>
        <translation>
            <numerusform>%Ln 个项目无法上传。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be downloaded.</source>
        <translation>
            <numerusform>%Ln 个项目无法下载。</numerusform>
        </translation>
    </message>
    <message>
        <source>The transfer could not be changed.</source>
        <translation>无法更改此传输。</translation>
    </message>
    <message>
        <source>The cloud service does not answer.</source>
        <translation>云服务没有响应。</translation>
    </message>
    <message>
        <source>It is no longer there.</source>
        <translation>它已不存在。</translation>
    </message>
    <message>
        <source>The name is already taken.</source>
        <translation>该名称已被使用。</translation>
    </message>
    <message>
        <source>You do not have permission for this.</source>
        <translation>您没有权限执行此操作。</translation>
    </message>
    <message>
        <source>The drive does not accept this name.</source>
        <translation>云盘不接受此名称。</translation>
    </message>
    <message>
        <source>There is no space left.</source>
        <translation>空间不足。</translation>
    </message>
    <message>
        <source>The file could not be read or written.</source>
        <translation>文件无法读取或写入。</translation>
    </message>
    <message>
        <source>The drive cannot be reached at present.</source>
        <translation>目前无法访问云盘。</translation>
    </message>
    <message>
        <source>It was cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>Something unexpected went wrong.</source>
        <translation>发生了意外错误。</translation>
    </message>
    <message>
        <source>The name of “%1” could not be changed.</source>
        <translation>无法更改“%1”的名称。</translation>
    </message>
    <message>
        <source>“%1” could not be moved.</source>
        <translation>无法移动“%1”。</translation>
    </message>
    <message>
        <source>“%1” could not be copied.</source>
        <translation>无法复制“%1”。</translation>
    </message>
    <message>
        <source>“%1” could not be moved to the recycle bin.</source>
        <translation>无法将“%1”移至回收站。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s) could not be moved back.</source>
        <translation>
            <numerusform>%Ln 个项目无法移回原处。</numerusform>
        </translation>
    </message>
    <message>
        <source>The old name could not be given back.</source>
        <translation>无法恢复原来的名称。</translation>
    </message>
    <message>
        <source>“%1” could not be uploaded.</source>
        <translation>无法上传“%1”。</translation>
    </message>
    <message>
        <source>“%1” could not be downloaded.</source>
        <translation>无法下载“%1”。</translation>
    </message>
    <message>
        <source>The new folder could not be removed.</source>
        <translation>无法移除新文件夹。</translation>
    </message>
</context>
<context>
    <name>CloudRow</name>
    <message>
        <source>Waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Failed</source>
        <comment>a transfer</comment>
        <translation>失败</translation>
    </message>
</context>
<context>
    <name>CloudSettingsPage</name>
    <message>
        <source>Cloud</source>
        <translation>云服务</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>The folder cannot be opened.</source>
        <translation>无法打开该文件夹。</translation>
    </message>
    <message>
        <source>Account on this computer</source>
        <translation>本机账号</translation>
    </message>
    <message>
        <source>Local account</source>
        <translation>本地账号</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>云盘</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空间</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>服务器</translation>
    </message>
    <message>
        <source>Cloud server</source>
        <translation>云服务器</translation>
    </message>
    <message>
        <source>Connecting a server is not available in this version. Nothing is sent anywhere.</source>
        <translation>此版本尚不能连接服务器。不会向任何地方发送内容。</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Sign Out</source>
        <translation>退出登录</translation>
    </message>
    <message>
        <source>Sign In</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Not known at the moment.</source>
        <translation>暂时无法获知。</translation>
    </message>
    <message>
        <source>The cloud service did not do it. Please try again.</source>
        <translation>云服务未能完成此操作，请重试。</translation>
    </message>
    <message>
        <source>Sign out although uploads still wait?</source>
        <translation>仍有上传在等待，确定退出登录吗？</translation>
    </message>
    <message>
        <source>Sign Out and Drop Uploads</source>
        <translation>退出登录并放弃上传</translation>
    </message>
    <message numerus="yes">
        <source>%Ln upload(s) will not be done.</source>
        <translation>
            <numerusform>%Ln 个上传将不会完成。</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>请稍候…</translation>
    </message>
    <message>
        <source>The cloud service is not running. Your documents in the folder stay usable.</source>
        <translation>云服务未运行。文件夹中的文档仍可使用。</translation>
    </message>
    <message>
        <source>Signed out. Recent documents of your devices are not kept together.</source>
        <translation>已退出登录。各设备的最近文档不再汇总。</translation>
    </message>
    <message>
        <source>Signed in. Everything stays on this computer.</source>
        <translation>已登录。所有内容都保存在这台电脑上。</translation>
    </message>
    <message>
        <source>Copies kept to open documents faster</source>
        <translation>为更快打开文档而保留的副本</translation>
    </message>
    <message>
        <source>Show in file managers</source>
        <translation>在文件管理器中显示</translation>
    </message>
    <message>
        <source>Among the places at the side of file managers and dialogs.</source>
        <translation>列在文件管理器和对话框侧边的位置中。</translation>
    </message>
    <message>
        <source>Each time</source>
        <translation>每次</translation>
    </message>
    <message>
        <source>Once a day</source>
        <translation>每天一次</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>从不</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>传输</translation>
    </message>
    <message>
        <source>Message when transfers have ended</source>
        <translation>传输结束时显示消息</translation>
    </message>
    <message>
        <source>From the desktop, while ZEL Box is not in front.</source>
        <translation>由桌面显示，仅当 ZEL Box 不在前台时。</translation>
    </message>
</context>
<context>
    <name>CloudSettingsWidget</name>
    <message>
        <source>Privacy</source>
        <translation>隐私</translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation>云服务</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>最近</translation>
    </message>
    <message>
        <source>File radar</source>
        <translation>文件雷达</translation>
    </message>
    <message>
        <source>Desktop sync</source>
        <translation>桌面同步</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Nothing to set yet</source>
        <translation>暂无可设置的内容</translation>
    </message>
    <message>
        <source>What the file radar watches will be chosen here. It comes with a later version.</source>
        <translation>文件雷达的监视范围将在此处选择，后续版本提供。</translation>
    </message>
    <message>
        <source>Which folders are kept in step will be chosen here. Desktop sync comes with a later version.</source>
        <translation>要保持同步的文件夹将在此处选择。桌面同步将在后续版本提供。</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
</context>
<context>
    <name>CloudSortMenu</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Last modified</source>
        <translation>修改时间</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
</context>
<context>
    <name>CloudStatusLine</name>
    <message>
        <source>%1 of %2 selected</source>
        <translation>已选 %1/%2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s)</source>
        <translation>
            <numerusform>%Ln 个项目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ColumnHeadings</name>
    <message>
        <source>Columns of the list</source>
        <translation>列表的列</translation>
    </message>
</context>
<context>
    <name>ConfirmDialog</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>Replace moves the file that is there to the recycle bin.</source>
        <translation>“替换”会将原有文件移到回收站。</translation>
    </message>
    <message>
        <source>Replace overwrites the file that is there.</source>
        <translation>“替换”会覆盖原有文件。</translation>
    </message>
    <message>
        <source>Name already taken</source>
        <translation>名称已被使用</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>保留两者</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>跳过</translation>
    </message>
    <message>
        <source>“%1” is already there</source>
        <translation>“%1”已存在</translation>
    </message>
    <message numerus="yes">
        <source>%Ln name(s) are already taken there</source>
        <translation>
            <numerusform>有 %Ln 个名称已被使用</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>以及另外 %Ln 个</numerusform>
        </translation>
    </message>
    <message>
        <source>The file that is there: %1, changed %2.</source>
        <comment>size, time</comment>
        <translation>现有文件：%1，修改于 %2。</translation>
    </message>
    <message>
        <source>Keep Both gives the new one the name “%1”.</source>
        <translation>“保留两者”会将新文件命名为“%1”。</translation>
    </message>
    <message>
        <source>Replace moves files that are there to the recycle bin; folders are merged.</source>
        <translation>“替换”会将现有文件移到回收站；文件夹将会合并。</translation>
    </message>
    <message>
        <source>Replace overwrites the files that are there; folders are merged.</source>
        <translation>“替换”会覆盖现有文件；文件夹将会合并。</translation>
    </message>
    <message>
        <source>Replace moves what is there to the recycle bin.</source>
        <translation>“替换”会将那里的现有项目移到回收站。</translation>
    </message>
    <message>
        <source>The new file: %1, changed %2.</source>
        <comment>size, time</comment>
        <translation>新文件：%1，修改于 %2。</translation>
    </message>
</context>
<context>
    <name>CrumbButton</name>
    <message>
        <source>The folder that is shown</source>
        <translation>当前显示的文件夹</translation>
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
        <source>Are you sure to delete %Ln file(s) ?</source>
        <translation>
            <numerusform>确定要删除 %Ln 个文件吗？</numerusform>
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
    <name>EndingDialog</name>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Your documents are still being changed</source>
        <translation>您的文档仍在更改中</translation>
    </message>
    <message>
        <source>ZEL Box exits once that is done, after half a minute at the latest. What is not done by then stays as it is.</source>
        <translation>完成后 ZEL Box 将退出，最迟在半分钟后。届时未完成的部分将保持原样。</translation>
    </message>
    <message>
        <source>Exit Now</source>
        <translation>立即退出</translation>
    </message>
    <message>
        <source>Keep running</source>
        <translation>继续运行</translation>
    </message>
</context>
<context>
    <name>FeedbackDialog</name>
    <message>
        <source>Feedback</source>
        <translation>反馈</translation>
    </message>
    <message>
        <source>Tell those who look after this computer</source>
        <translation>告诉维护这台电脑的人</translation>
    </message>
    <message>
        <source>Nothing is sent by itself. These help to find out what happened:</source>
        <translation>不会自动发送任何内容。以下信息有助于查明原因：</translation>
    </message>
    <message>
        <source>Copy the details</source>
        <translation>复制详细信息</translation>
    </message>
    <message>
        <source>What happened, the version and the system.</source>
        <translation>发生了什么，以及版本和系统。</translation>
    </message>
    <message>
        <source>Show the log</source>
        <translation>显示日志</translation>
    </message>
    <message>
        <source>To add it to a mail.</source>
        <translation>以便附在邮件中。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
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
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>This folder cannot be opened.</source>
        <translation>无法打开此文件夹。</translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>Start and end</source>
        <translation>启动与退出</translation>
    </message>
    <message>
        <source>Look and language</source>
        <translation>外观与语言</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Start with the session</source>
        <translation>开机启动</translation>
    </message>
    <message>
        <source>When you log in, ZEL Box starts in the background, without a window.</source>
        <translation>登录桌面时，ZEL Box 在后台启动，不显示窗口。</translation>
    </message>
    <message>
        <source>When the window is closed</source>
        <translation>关闭窗口时</translation>
    </message>
    <message>
        <source>Automatic: it keeps running in the background where the desktop has a tray, and asks elsewhere.</source>
        <translation>自动：桌面有托盘时在后台继续运行，否则询问。</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>Keep running</source>
        <translation>继续运行</translation>
    </message>
    <message>
        <source>Ask each time</source>
        <translation>每次询问</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
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
        <source>The entry for the start with the session cannot be written.</source>
        <translation>无法写入开机启动项。</translation>
    </message>
    <message>
        <source>The entry for the start with the session cannot be changed.</source>
        <translation>无法更改开机启动项。</translation>
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
    <message>
        <source>Remove from the list</source>
        <translation>从列表中移除</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Undo the last change of the list</source>
        <translation>撤销对列表的上一次更改</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Recent documents</source>
        <translation>最近文档</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>分享</translation>
    </message>
    <message>
        <source>Move to Recycle Bin</source>
        <translation>移到回收站</translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln File(s) to Recycle Bin</source>
        <translation>
            <numerusform>将 %Ln 个文件移到回收站</numerusform>
        </translation>
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
    <name>KeyField</name>
    <message>
        <source>Backspace: no keys. Esc: the same as before.</source>
        <translation>Backspace：不设快捷键；Esc：保持不变。</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Press keys…</source>
        <translation>请按键…</translation>
    </message>
    <message>
        <source>Waiting for keys. Escape gives up, Backspace means none.</source>
        <translation>正在等待按键。按 Esc 放弃，按退格键表示不设置。</translation>
    </message>
</context>
<context>
    <name>ListSortMenu</name>
    <message>
        <source>Order of the list</source>
        <translation>列表排序</translation>
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
    <name>LocalFileDialog</name>
    <message>
        <source>Folders</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Folder path</source>
        <translation>文件夹路径</translation>
    </message>
    <message>
        <source>File path</source>
        <translation>文件路径</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>This folder cannot be read.</source>
        <translation>无法读取此文件夹。</translation>
    </message>
    <message>
        <source>This folder does not answer.</source>
        <translation>此文件夹没有响应。</translation>
    </message>
</context>
<context>
    <name>MiniPanel</name>
    <message>
        <source>Open ZEL Box</source>
        <translation>打开 ZEL Box</translation>
    </message>
    <message>
        <source>Keep in sight</source>
        <translation>保持显示</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>MoveDialog</name>
    <message>
        <source>Move to</source>
        <translation>移动到</translation>
    </message>
    <message>
        <source>Move “%1” to</source>
        <translation>将“%1”移动到</translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln item(s) to</source>
        <translation>
            <numerusform>将 %Ln 个项目移动到</numerusform>
        </translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>To “%1”</source>
        <translation>移动到“%1”</translation>
    </message>
    <message>
        <source>The cloud service is not reachable at present.</source>
        <translation>目前无法连接云服务。</translation>
    </message>
    <message>
        <source>There are no folders in here.</source>
        <translation>此处没有文件夹。</translation>
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
        <source>Team folders</source>
        <translation>团队文件夹</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>File radar</source>
        <translation>文件雷达</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>频道</translation>
    </message>
    <message>
        <source>Desktop sync</source>
        <translation>桌面同步</translation>
    </message>
    <message>
        <source>Folders that a team shares need a cloud server, which this version cannot connect to.</source>
        <translation>团队共享文件夹需要云服务器，此版本尚不能连接。</translation>
    </message>
    <message>
        <source>Messages about your documents come with a later version.</source>
        <translation>文档消息将在后续版本提供。</translation>
    </message>
    <message>
        <source>Files that you receive and download will be found here in a later version.</source>
        <translation>后续版本将在此处汇集您接收和下载的文件。</translation>
    </message>
    <message>
        <source>Message channels come with a later version.</source>
        <translation>消息频道将在后续版本提供。</translation>
    </message>
    <message>
        <source>Keeping your desktop folder in step with the cloud comes with a later version.</source>
        <translation>桌面文件夹与云端同步将在后续版本提供。</translation>
    </message>
</context>
<context>
    <name>NavigationBar</name>
    <message numerus="yes">
        <source>%Ln unread</source>
        <translation>
            <numerusform>%Ln 条未读</numerusform>
        </translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>页面</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Close notice</source>
        <translation>关闭提示</translation>
    </message>
</context>
<context>
    <name>OpeningNotices</name>
    <message>
        <source>“%1” is no longer there.</source>
        <translation>“%1”已不存在。</translation>
    </message>
    <message>
        <source>You do not have permission to read “%1”.</source>
        <translation>您没有读取“%1”的权限。</translation>
    </message>
    <message>
        <source>No program on this computer opens “%1”.</source>
        <translation>这台电脑上没有可以打开“%1”的程序。</translation>
    </message>
    <message>
        <source>This file is on another device only.</source>
        <translation>此文件仅在其他设备上。</translation>
    </message>
    <message>
        <source>“%1” is on another device only.</source>
        <translation>“%1”仅在其他设备上。</translation>
    </message>
    <message numerus="yes">
        <source>At most %Ln documents are opened at once.</source>
        <translation>
            <numerusform>一次最多打开 %Ln 个文档。</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder of “%1” is no longer there.</source>
        <translation>“%1”所在的文件夹已不存在。</translation>
    </message>
    <message>
        <source>The folder of “%1” cannot be shown.</source>
        <translation>无法显示“%1”所在的文件夹。</translation>
    </message>
    <message>
        <source>The place of “%1” does not answer.</source>
        <translation>“%1”所在的位置没有响应。</translation>
    </message>
    <message>
        <source>Waiting for the place of “%1”…</source>
        <translation>正在等待“%1”所在位置响应…</translation>
    </message>
    <message numerus="yes">
        <source>Waiting for the places of %Ln documents…</source>
        <translation>
            <numerusform>正在等待 %Ln 个文档所在位置响应…</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>PrivacyPage</name>
    <message>
        <source>Usage events</source>
        <translation>使用事件</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>隐私</translation>
    </message>
    <message>
        <source>Write usage events to a file on this computer</source>
        <translation>将使用事件写入本机文件</translation>
    </message>
    <message>
        <source>Which functions are used how often, for whoever looks for errors. Off unless you switch it on; the file never leaves this computer.</source>
        <translation>记录各功能的使用频率，便于排查错误。默认关闭；该文件不会离开这台电脑。</translation>
    </message>
    <message>
        <source>What is stored where</source>
        <translation>存储内容与位置</translation>
    </message>
    <message>
        <source>All of this lies in your own folders, and nobody else is told of it.</source>
        <translation>所有内容都在您自己的文件夹中，不会发送给任何人。</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Cleared.</source>
        <translation>已清除。</translation>
    </message>
    <message>
        <source>Some of it could not be removed.</source>
        <translation>部分内容无法删除。</translation>
    </message>
    <message>
        <source>Cleared here. The desktop&apos;s list could not be changed, so it still names the documents.</source>
        <translation>此处已清除。但无法更改桌面的列表，其中仍有这些文档。</translation>
    </message>
    <message>
        <source>Cleared here. The cloud service could not be asked; its list is as it was.</source>
        <translation>此处已清除。但无法联系云服务，其列表保持不变。</translation>
    </message>
    <message>
        <source>Clear the history of recent documents?</source>
        <translation>清除最近文档的记录？</translation>
    </message>
    <message>
        <source>The list is emptied for good, pins included. The same documents go from the desktop&apos;s list of recent documents, which other programs show, and from the list of your devices.</source>
        <translation>列表将被永久清空，包括置顶的文档。同样的文档也会从桌面的最近文档列表（其他程序会显示）和您各设备的列表中移除。</translation>
    </message>
    <message>
        <source>The documents themselves stay where they are.</source>
        <translation>文档本身不受影响。</translation>
    </message>
    <message>
        <source>Clear the logs?</source>
        <translation>清除日志？</translation>
    </message>
    <message>
        <source>If something has gone wrong lately, its traces are lost.</source>
        <translation>如果最近出过问题，相关线索将会丢失。</translation>
    </message>
    <message>
        <source>Clear the usage events?</source>
        <translation>清除使用事件？</translation>
    </message>
    <message>
        <source>Everything that was written so far is removed. Whether further events are written is up to the switch above.</source>
        <translation>目前已写入的全部内容将被删除。是否继续写入由上方的开关决定。</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Return</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>←</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>→</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>↑</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>↓</translation>
    </message>
</context>
<context>
    <name>RecentCommands</name>
    <message>
        <source>Undo Pinning</source>
        <translation>撤销置顶</translation>
    </message>
    <message>
        <source>Undo Unpinning</source>
        <translation>撤销取消置顶</translation>
    </message>
    <message>
        <source>“%1” was removed from the list.</source>
        <translation>“%1”已从列表中移除。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln document(s) were removed from the list.</source>
        <translation>
            <numerusform>已从列表中移除 %Ln 个文档。</numerusform>
        </translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>此操作无法撤销。</translation>
    </message>
    <message numerus="yes">
        <source>Undo brings back %Ln of them, on this device only.</source>
        <translation>
            <numerusform>撤销可恢复其中 %Ln 个，且仅在此设备上。</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo works on this device only.</source>
        <translation>撤销仅对此设备有效。</translation>
    </message>
    <message>
        <source>Undo Removal</source>
        <translation>撤销移除</translation>
    </message>
    <message>
        <source>“%1” is back on the list.</source>
        <translation>“%1”已回到列表中。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln document(s) are back on the list.</source>
        <translation>
            <numerusform>%Ln 个文档已回到列表中。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” could not be deleted.</source>
        <translation>无法删除“%1”。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) could not be deleted.</source>
        <translation>
            <numerusform>%Ln 个文件无法删除。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was moved to the recycle bin.</source>
        <translation>“%1”已移到回收站。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) were moved to the recycle bin.</source>
        <translation>
            <numerusform>%Ln 个文件已移到回收站。</numerusform>
        </translation>
    </message>
    <message>
        <source>Undo Deletion</source>
        <translation>撤销删除</translation>
    </message>
    <message>
        <source>“%1” could not be brought back.</source>
        <translation>无法恢复“%1”。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) could not be brought back.</source>
        <translation>
            <numerusform>%Ln 个文件无法恢复。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln document(s) were left out: they are not on this device.</source>
        <translation>
            <numerusform>有 %Ln 个文档不在此设备上，未处理。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is on the clipboard.</source>
        <translation>“%1”已复制到剪贴板。</translation>
    </message>
    <message>
        <source>The path of “%1” is on the clipboard.</source>
        <translation>“%1”的路径已复制到剪贴板。</translation>
    </message>
    <message>
        <source>“%1” was reported.</source>
        <translation>已举报“%1”。</translation>
    </message>
    <message>
        <source>“%1” is back in “%2”.</source>
        <translation>“%1”已恢复到“%2”。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) are back where they were.</source>
        <translation>
            <numerusform>%Ln 个文件已恢复到原来的位置。</numerusform>
        </translation>
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
        <source>Documents that you open will be listed here.</source>
        <translation>您打开的文档将显示在这里。</translation>
    </message>
    <message>
        <source>No recent documents</source>
        <translation>没有最近文档</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>No recent document has these words in its name or folder.</source>
        <translation>没有名称或文件夹中包含这些词的最近文档。</translation>
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
    <name>RecentSettingsPage</name>
    <message>
        <source>Recent</source>
        <translation>最近</translation>
    </message>
    <message>
        <source>Other devices</source>
        <translation>其他设备</translation>
    </message>
    <message>
        <source>Remind of changes on other devices</source>
        <translation>提醒其他设备上的更改</translation>
    </message>
    <message>
        <source>Documents that another device has added or modified get a mark, and the page shows how many there are.</source>
        <translation>其他设备新增或修改的文档会带有标记，页面会显示其数量。</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>来源</translation>
    </message>
    <message>
        <source>What the list is made of. A source that is switched off is hidden; nothing of it is lost.</source>
        <translation>列表的组成部分。关闭的来源会被隐藏，但不会丢失任何内容。</translation>
    </message>
    <message>
        <source>This desktop&apos;s list</source>
        <translation>此桌面的列表</translation>
    </message>
    <message>
        <source>Documents that any program of this desktop has opened, including sandboxed programs.</source>
        <translation>此桌面任意程序（包括沙盒程序）打开过的文档。</translation>
    </message>
    <message>
        <source>Documents used in ZEL Box</source>
        <translation>在 ZEL Box 中使用的文档</translation>
    </message>
    <message>
        <source>Documents that you opened or pinned here.</source>
        <translation>您在此处打开或置顶的文档。</translation>
    </message>
    <message>
        <source>Documents that you used on other devices, as the cloud service tells.</source>
        <translation>您在其他设备上使用过、由云服务同步的文档。</translation>
    </message>
    <message>
        <source>Shown in the list</source>
        <translation>列表中显示</translation>
    </message>
    <message>
        <source>Which of these documents the list shows, by their last use.</source>
        <translation>按最后一次使用的方式，选择列表显示哪些文档。</translation>
    </message>
    <message>
        <source>Last used in ZEL Box</source>
        <translation>最后在 ZEL Box 中使用</translation>
    </message>
    <message>
        <source>Last used in programs of this desktop</source>
        <translation>最后在此桌面的程序中使用</translation>
    </message>
    <message>
        <source>Last used in sandboxed programs</source>
        <translation>最后在沙盒程序中使用</translation>
    </message>
    <message>
        <source>Last used on other devices</source>
        <translation>最后在其他设备上使用</translation>
    </message>
</context>
<context>
    <name>RecentSortMenu</name>
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
</context>
<context>
    <name>RecentStates</name>
    <message>
        <source>Nothing found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>No recent document has these words in its name or folder.</source>
        <translation>没有名称或文件夹中包含这些词的最近文档。</translation>
    </message>
    <message>
        <source>No recent document is of this kind.</source>
        <translation>没有此类最近文档。</translation>
    </message>
    <message>
        <source>No recent document of this kind has these words in its name or folder.</source>
        <translation>没有名称或文件夹中包含这些词的此类最近文档。</translation>
    </message>
    <message>
        <source>The list of recent files could not be loaded yet.</source>
        <translation>最近文件列表尚未加载。</translation>
    </message>
</context>
<context>
    <name>RecentStoreNotices</name>
    <message>
        <source>The list of recent documents is saved again.</source>
        <translation>最近文档列表已恢复保存。</translation>
    </message>
    <message>
        <source>The list of recent documents cannot be saved at present. What is changed here may be lost when ZEL Box ends.</source>
        <translation>最近文档列表目前无法保存。ZEL Box 退出后，此处的更改可能会丢失。</translation>
    </message>
    <message>
        <source>The list of recent documents was damaged and had to be made anew. Some of them may be missing.</source>
        <translation>最近文档列表已损坏，只能重新建立，其中可能缺少部分文档。</translation>
    </message>
    <message>
        <source>“%1” is a folder. Only documents are listed here.</source>
        <translation>“%1”是文件夹。此处只列出文档。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln folders were left out. Only documents are listed here.</source>
        <translation>
            <numerusform>略过了 %Ln 个文件夹。此处只列出文档。</numerusform>
        </translation>
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
        <source>Are you sure to remove %Ln record(s) ?</source>
        <translation>
            <numerusform>确定要移除 %Ln 条记录吗？</numerusform>
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
    <message>
        <source>It goes from the lists of your other devices, too, which cannot be undone.</source>
        <translation>它也会从您其他设备的列表中移除，且无法撤销。</translation>
    </message>
</context>
<context>
    <name>SearchBox</name>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Search in %1</source>
        <translation>在“%1”中搜索</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>清除搜索</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
</context>
<context>
    <name>SectionListView</name>
    <message>
        <source>%1 of %2</source>
        <comment>place of a row in its list</comment>
        <translation>第 %1 项，共 %2 项</translation>
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
    <name>Shortcuts</name>
    <message>
        <source>Go to %1</source>
        <translation>转到“%1”</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Main menu</source>
        <translation>主菜单</translation>
    </message>
    <message>
        <source>Close window</source>
        <translation>关闭窗口</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>下一页面</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>上一页面</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Select or clear the row</source>
        <translation>选中或取消选中该行</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Menu of the row</source>
        <translation>该行的菜单</translation>
    </message>
    <message>
        <source>Empty the search field, or hide</source>
        <translation>清空搜索框或隐藏</translation>
    </message>
    <message>
        <source>Dock to the left edge</source>
        <translation>停靠到左边缘</translation>
    </message>
    <message>
        <source>Dock to the right edge</source>
        <translation>停靠到右边缘</translation>
    </message>
    <message>
        <source>Dock to the top edge</source>
        <translation>停靠到上边缘</translation>
    </message>
    <message>
        <source>Leave the edge</source>
        <translation>离开边缘</translation>
    </message>
</context>
<context>
    <name>ShortcutsPage</name>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Reset All…</source>
        <translation>全部重置…</translation>
    </message>
    <message>
        <source>Reset “%1” to its standard keys</source>
        <translation>将“%1”恢复为默认按键</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1 is needed for typing or for moving about.</source>
        <translation>%1 用于输入或移动焦点，不能使用。</translation>
    </message>
    <message>
        <source>%1 already stands for “%2”.</source>
        <translation>%1 已用于“%2”。</translation>
    </message>
    <message>
        <source>Reset all shortcuts to the standard keys?</source>
        <translation>将所有快捷键恢复为默认按键？</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>全部重置</translation>
    </message>
    <message>
        <source>Your own keys are forgotten.</source>
        <translation>您自定义的按键将会丢失。</translation>
    </message>
    <message>
        <source>Main window</source>
        <translation>主窗口</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Mini window</source>
        <translation>迷你窗口</translation>
    </message>
    <message>
        <source>Use Here</source>
        <translation>用于此处</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation>列表</translation>
    </message>
</context>
<context>
    <name>SizeTexts</name>
    <message>
        <source>%1 used, %2 free</source>
        <translation>已用 %1，可用 %2</translation>
    </message>
    <message>
        <source>%1 used</source>
        <translation>已用 %1</translation>
    </message>
</context>
<context>
    <name>StateStack</name>
    <message>
        <source>This takes longer than usual</source>
        <translation>加载时间比平常长</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>This list cannot be shown</source>
        <translation>无法显示此列表</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>显示全部</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>StorageRow</name>
    <message>
        <source>Recent documents</source>
        <translation>最近文档</translation>
    </message>
    <message>
        <source>Cloud documents</source>
        <translation>云文档</translation>
    </message>
    <message>
        <source>Cloud database</source>
        <translation>云数据库</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Usage events</source>
        <translation>使用事件</translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation>缩略图</translation>
    </message>
    <message>
        <source>Counting…</source>
        <translation>正在统计…</translation>
    </message>
    <message>
        <source>Show folder of “%1”</source>
        <translation>显示“%1”的文件夹</translation>
    </message>
    <message>
        <source>Clear…</source>
        <translation>清除…</translation>
    </message>
    <message>
        <source>Clear “%1”…</source>
        <translation>清除“%1”…</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Which documents you used, when, and what you pinned.</source>
        <translation>您使用过哪些文档、何时使用，以及置顶了哪些。</translation>
    </message>
    <message>
        <source>Your cloud documents and their recycle bin. Manage them on the page of cloud documents.</source>
        <translation>您的云文档及其回收站。请在云文档页面中管理。</translation>
    </message>
    <message>
        <source>Messages, transfers and the list of documents of your devices.</source>
        <translation>消息、传输以及各设备的文档列表。</translation>
    </message>
    <message>
        <source>What you choose in this window, and the places of windows.</source>
        <translation>您在此窗口中的选择，以及各窗口的位置。</translation>
    </message>
    <message>
        <source>Notes for finding errors. No names of documents.</source>
        <translation>用于排查错误的记录，不含文档名称。</translation>
    </message>
    <message>
        <source>Usage events, while they are switched on.</source>
        <translation>使用事件（开启时）。</translation>
    </message>
    <message>
        <source>Small pictures of documents. They belong to the desktop; ZEL Box only reads them.</source>
        <translation>文档的缩略图。它们属于桌面，ZEL Box 只读取。</translation>
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
        <source>Open Folder</source>
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
    <message>
        <source>en</source>
        <comment>the language of this catalogue, for names of months</comment>
        <translation>zh_CN</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>date, time of day</comment>
        <translation>%1 %2</translation>
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
    <name>TransferBubbles</name>
    <message numerus="yes">
        <source>and %Ln more</source>
        <translation>
            <numerusform>还有 %Ln 个</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln transfer(s) done</source>
        <translation>
            <numerusform>%Ln 项传输已完成</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln transfer(s) failed</source>
        <translation>
            <numerusform>%Ln 项传输失败</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TransferButton</name>
    <message>
        <source>Transfers</source>
        <translation>传输</translation>
    </message>
    <message numerus="yes">
        <source>Transfers: %Ln running, %1%</source>
        <translation>
            <numerusform>传输：%Ln 个进行中，%1%</numerusform>
        </translation>
    </message>
    <message>
        <source>Transfers: something went wrong</source>
        <translation>传输：出现问题</translation>
    </message>
</context>
<context>
    <name>TransferDelegate</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>TransferListView</name>
    <message>
        <source>Transfers</source>
        <translation>传输</translation>
    </message>
</context>
<context>
    <name>TransferPanel</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message numerus="yes">
        <source>%Ln transfer(s) running</source>
        <translation>
            <numerusform>%Ln 个传输进行中</numerusform>
        </translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>传输</translation>
    </message>
    <message>
        <source>Clear Finished</source>
        <translation>清除已完成</translation>
    </message>
    <message>
        <source>Nothing is being uploaded or downloaded.</source>
        <translation>没有正在上传或下载的内容。</translation>
    </message>
</context>
<context>
    <name>TransferTexts</name>
    <message numerus="yes">
        <source>%1 without %Ln item(s)</source>
        <comment>done</comment>
        <translation>
            <numerusform>%1，缺少 %Ln 个项目</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>bytes done of bytes in all</comment>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/秒</translation>
    </message>
    <message>
        <source>Waiting to be uploaded</source>
        <translation>等待上传</translation>
    </message>
    <message>
        <source>Waiting to be downloaded</source>
        <translation>等待下载</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>已中断</translation>
    </message>
    <message>
        <source>Uploaded</source>
        <translation>已上传</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>已下载</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>剩余不到一分钟</translation>
    </message>
    <message numerus="yes">
        <source>%Ln minute(s) left</source>
        <translation>
            <numerusform>剩余 %Ln 分钟</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln hour(s) left</source>
        <translation>
            <numerusform>剩余 %Ln 小时</numerusform>
        </translation>
    </message>
    <message>
        <source>%1%, %2</source>
        <comment>progress, details</comment>
        <translation>%1%，%2</translation>
    </message>
</context>
<context>
    <name>UndoOffer</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
</context>
<context>
    <name>ZelBoxCloudDocWidget</name>
    <message>
        <source>Cloud documents</source>
        <translation>云文档</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
</context>
<context>
    <name>ZelBoxExitDialog</name>
    <message numerus="yes">
        <source>%Ln transfer(s) are under way. They go on after the exit until they are done.</source>
        <translation>
            <numerusform>还有 %Ln 个传输正在进行，退出后会继续直到完成。</numerusform>
        </translation>
    </message>
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
        <source>On this computer</source>
        <translation>在这台电脑上</translation>
    </message>
</context>
<context>
    <name>ZelBoxMainWindow</name>
    <message>
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>还原</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>ZelBoxMainWindowMenu</name>
    <message>
        <source>Main menu</source>
        <translation>主菜单</translation>
    </message>
    <message>
        <source>Cloud Documents</source>
        <translation>云文档</translation>
    </message>
    <message>
        <source>Cloud Website</source>
        <translation>云网站</translation>
    </message>
    <message>
        <source>Transfers</source>
        <translation>传输列表</translation>
    </message>
    <message>
        <source>Upgrade Membership</source>
        <translation>升级会员</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Sign Out</source>
        <translation>退出登录</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Cloud space</source>
        <translation>云空间</translation>
    </message>
    <message>
        <source>Not signed in</source>
        <translation>未登录</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>登录…</translation>
    </message>
    <message>
        <source>Signed in as %1</source>
        <translation>已登录：%1</translation>
    </message>
</context>
<context>
    <name>ZelBoxMiniWidget</name>
    <message>
        <source>Quick search</source>
        <translation>快速搜索</translation>
    </message>
    <message>
        <source>Enter opens  ·  Ctrl+Enter shows in folder  ·  Esc closes</source>
        <translation>回车打开  ·  Ctrl+回车在文件夹中显示  ·  Esc 关闭</translation>
    </message>
</context>
<context>
    <name>ZelBoxMiniWindow</name>
    <message>
        <source>Mini window</source>
        <translation>迷你窗口</translation>
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
        <translation>云服务会保存这些文档的名称和位置。如果没有您自己的服务器，它们只保存在这台电脑上。</translation>
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
        <source>Sort</source>
        <translation>排序</translation>
    </message>
    <message>
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message numerus="yes">
        <source>%Ln unread</source>
        <translation>
            <numerusform>%Ln 个未读</numerusform>
        </translation>
    </message>
    <message>
        <source>Mark all as seen</source>
        <translation>全部标为已看</translation>
    </message>
    <message>
        <source>%1 of %2 selected</source>
        <translation>已选 %1/%2</translation>
    </message>
</context>
<context>
    <name>ZelBoxRecentFileWidgetBase</name>
    <message>
        <source>Open a File</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Loading recent files</source>
        <translation>正在加载最近文件</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
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
        <source>Mini Window</source>
        <translation>迷你窗口</translation>
    </message>
    <message>
        <source>Quick Search</source>
        <translation>快速搜索</translation>
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
    <message numerus="yes">
        <source>%Ln new or changed document(s)</source>
        <translation>
            <numerusform>%Ln 个新增或已更改的文档</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln transfer(s) under way</source>
        <translation>
            <numerusform>%Ln 个传输正在进行</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ZelBoxUnLoginSpaceWidget</name>
    <message>
        <source>On this computer only</source>
        <translation>仅保存在本机</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>登录…</translation>
    </message>
</context>
</TS>
