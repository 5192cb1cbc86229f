<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>AdjustImageView</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Picture being adjusted</source>
        <translation>正在调整的图片</translation>
    </message>
</context>
<context>
    <name>BrandTextField</name>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>CanvasView</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>涂鸦</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
</context>
<context>
    <name>ChooseColorView</name>
    <message>
        <source>Colour %1</source>
        <translation>颜色 %1</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>颜色</translation>
    </message>
</context>
<context>
    <name>ChooseIntensityView</name>
    <message>
        <source>Intensity</source>
        <translation>强度</translation>
    </message>
</context>
<context>
    <name>ChooseLineWidthView</name>
    <message>
        <source>Line width</source>
        <translation>线条粗细</translation>
    </message>
</context>
<context>
    <name>CropperView</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Rotate left</source>
        <translation>向左旋转</translation>
    </message>
    <message>
        <source>Rotate right</source>
        <translation>向右旋转</translation>
    </message>
    <message>
        <source>Flip horizontally</source>
        <translation>水平翻转</translation>
    </message>
    <message>
        <source>Flip vertically</source>
        <translation>垂直翻转</translation>
    </message>
    <message>
        <source>Crop frame: drag an edge, a corner or the middle</source>
        <translation>裁剪框：拖动边、角或中间</translation>
    </message>
    <message>
        <source>CROP</source>
        <translation>裁剪</translation>
    </message>
</context>
<context>
    <name>DiscardEditsView</name>
    <message>
        <source>Discard your edits?</source>
        <translation>放弃所做的编辑？</translation>
    </message>
    <message>
        <source>Keep editing</source>
        <translation>继续编辑</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>放弃</translation>
    </message>
</context>
<context>
    <name>ErrorView</name>
    <message>
        <source>Sorry</source>
        <translation>抱歉</translation>
    </message>
    <message>
        <source>Accept</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>Filter</name>
    <message>
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>灰色</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>粉色</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>黄色</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>橙色</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>棕色</translation>
    </message>
    <message>
        <source>White</source>
        <translation>白色</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>原图</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Adjust #1</source>
        <translation>调整 1</translation>
    </message>
    <message>
        <source>Adjust #2</source>
        <translation>调整 2</translation>
    </message>
    <message>
        <source>Adjust #3</source>
        <translation>调整 3</translation>
    </message>
    <message>
        <source>Adjust #4</source>
        <translation>调整 4</translation>
    </message>
    <message>
        <source>Adjust #5</source>
        <translation>调整 5</translation>
    </message>
    <message>
        <source>Adjust #6</source>
        <translation>调整 6</translation>
    </message>
    <message>
        <source>Adjust #7</source>
        <translation>调整 7</translation>
    </message>
    <message>
        <source>Adjust #8</source>
        <translation>调整 8</translation>
    </message>
    <message>
        <source>Adjust #9</source>
        <translation>调整 9</translation>
    </message>
</context>
<context>
    <name>FiltersView</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Picture with the chosen filter</source>
        <translation>应用所选滤镜的图片</translation>
    </message>
</context>
<context>
    <name>ImageEditorView</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>CONTINUE</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Picture being edited</source>
        <translation>正在编辑的图片</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>涂鸦</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>滤镜</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>调整</translation>
    </message>
</context>
<context>
    <name>SelectFilterView</name>
    <message>
        <source>Choices</source>
        <translation>选项</translation>
    </message>
</context>
<context>
    <name>TextImageView</name>
    <message>
        <source>CANCEL</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Add the text</source>
        <translation>添加文字</translation>
    </message>
    <message>
        <source>Add some text...</source>
        <translation>输入文字...</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>斜体</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>粗体</translation>
    </message>
    <message>
        <source>Uppercase</source>
        <translation>大写</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>字号</translation>
    </message>
</context>
<context>
    <name>ToolPageBar</name>
    <message>
        <source>ACCEPT</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>CANCEL</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>TransformView</name>
    <message>
        <source>Rotation</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>缩放</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>To left</source>
        <translation>向左</translation>
    </message>
    <message>
        <source>To right</source>
        <translation>向右</translation>
    </message>
    <message>
        <source>90°</source>
        <translation>90°</translation>
    </message>
    <message>
        <source>180°</source>
        <translation>180°</translation>
    </message>
    <message>
        <source>270°</source>
        <translation>270°</translation>
    </message>
    <message>
        <source>Scale down</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Scale up</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>0.25x</source>
        <translation>0.25x</translation>
    </message>
    <message>
        <source>0.5x</source>
        <translation>0.5x</translation>
    </message>
    <message>
        <source>1x</source>
        <translation>1x</translation>
    </message>
    <message>
        <source>1.25x</source>
        <translation>1.25x</translation>
    </message>
    <message>
        <source>2x</source>
        <translation>2x</translation>
    </message>
    <message>
        <source>4x</source>
        <translation>4x</translation>
    </message>
    <message>
        <source>Top leading</source>
        <translation>左上</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上方</translation>
    </message>
    <message>
        <source>Top trailing</source>
        <translation>右上</translation>
    </message>
    <message>
        <source>Leading</source>
        <translation>左侧</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>居中</translation>
    </message>
    <message>
        <source>Trailing</source>
        <translation>右侧</translation>
    </message>
    <message>
        <source>Bottom leading</source>
        <translation>左下</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下方</translation>
    </message>
    <message>
        <source>Bottom trailing</source>
        <translation>右下</translation>
    </message>
</context>
<context>
    <name>WorkIndicator</name>
    <message>
        <source>Working</source>
        <translation>正在处理</translation>
    </message>
</context>
</TS>
