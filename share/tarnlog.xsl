<?xml version="1.0" encoding="UTF-8"?>
<!-- Shows configurations (version 2.0), XML record files and XML event files of the recorder as a page. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8" indent="no" doctype-system="about:legacy-compat"/>

  <xsl:variable name="datas" select="/Tarnlog2000/Datas/Data"/>
  <xsl:variable name="rows" select="/Tarnlog2000/row"/>
  <xsl:variable name="count" select="count($rows)"/>
  <!-- Data that the vehicle did not give have no column. Then the columns cannot be told apart. -->
  <xsl:variable name="columns" select="$rows[1]/@*[starts-with(name(), 'C')]"/>
  <xsl:variable name="named" select="count($columns) = count($datas)"/>
  <!-- Of the table. More of them keep browsers busy for long. -->
  <xsl:variable name="most" select="10000"/>
  <!-- The usual time from row to row: the middle one of up to a thousand of them. -->
  <xsl:variable name="each" select="ceiling($count div 1000)"/>
  <xsl:variable name="step">
    <xsl:for-each select="$rows[position() &gt; 1 and position() mod $each = 0]">
      <xsl:sort select="translate(@Time, ',', '.') - translate(preceding-sibling::row[1]/@Time, ',', '.')" data-type="number"/>
      <xsl:if test="position() = ceiling(last() div 2)">
        <xsl:value-of select="translate(@Time, ',', '.') - translate(preceding-sibling::row[1]/@Time, ',', '.')"/>
      </xsl:if>
    </xsl:for-each>
  </xsl:variable>
  <!-- Longer ones are gaps. Times have two decimals. -->
  <xsl:variable name="pause" select="3 * $step + 0.015"/>

  <xsl:template match="/Tarnlog2000">
    <html lang="en">
      <head>
        <meta name="viewport" content="width=device-width, initial-scale=1"/>
        <title><xsl:call-template name="title"/></title>
        <xsl:call-template name="style"/>
      </head>
      <body>
        <header>
          <p class="kind"><xsl:call-template name="kind"/></p>
          <h1><xsl:call-template name="title"/></h1>
          <xsl:if test="Date">
            <p><xsl:value-of select="Date"/>, <xsl:value-of select="Time"/></p>
          </xsl:if>
          <xsl:if test="Parameters/Comment">
            <p class="comment"><xsl:value-of select="Parameters/Comment"/></p>
          </xsl:if>
        </header>
        <xsl:choose>
          <xsl:when test="Date">
            <xsl:call-template name="record"/>
            <details>
              <summary>Configuration</summary>
              <xsl:call-template name="configuration"/>
            </details>
          </xsl:when>
          <xsl:otherwise><xsl:call-template name="configuration"/></xsl:otherwise>
        </xsl:choose>
      </body>
    </html>
  </xsl:template>

  <!-- What else is called by this name shows that it is none of ours. -->
  <xsl:template match="/*[not(self::Tarnlog2000)]">
    <html lang="en"><body><p>This is neither a configuration nor a record file.</p></body></html>
  </xsl:template>

  <xsl:template name="kind">
    <xsl:choose>
      <xsl:when test="Description = 'Parameters file'">Configuration</xsl:when>
      <xsl:when test="Description = 'Data file'">Record</xsl:when>
      <xsl:otherwise><xsl:value-of select="Description"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="title">
    <xsl:choose>
      <xsl:when test="string(File)">
        <xsl:if test="Date and Description = 'Data file'"><xsl:value-of select="Parameters/Recording/File/@prefix"/></xsl:if>
        <xsl:call-template name="last-part"><xsl:with-param name="path" select="translate(File, '\', '/')"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="Description"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="last-part">
    <xsl:param name="path"/>
    <xsl:choose>
      <xsl:when test="contains($path, '/')">
        <xsl:call-template name="last-part"><xsl:with-param name="path" select="substring-after($path, '/')"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$path"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Configuration -->

  <xsl:template name="configuration">
    <section>
      <h2>Recording</h2>
      <dl>
        <dt>Period</dt>
        <dd>
          <xsl:choose>
            <xsl:when test="Parameters/Recording/@period = 0">every polling cycle</xsl:when>
            <xsl:otherwise><xsl:value-of select="Parameters/Recording/@period"/> s</xsl:otherwise>
          </xsl:choose>
        </dd>
        <xsl:apply-templates select="Parameters/Recording/Trigger/*"/>
        <xsl:apply-templates select="Parameters/Recording/File"/>
        <xsl:if test="string(Parameters/StartSession)">
          <dt>Start session</dt>
          <dd><code><xsl:value-of select="Parameters/StartSession"/></code></dd>
        </xsl:if>
      </dl>
    </section>
    <xsl:apply-templates select="Parameters/InitScenario[Request]"/>
    <section>
      <h2>Data</h2>
      <div class="scroll">
        <table>
          <thead>
            <tr><th class="number">#</th><th>Data</th><th>Unit</th><th>Request</th><th>ECU</th><th>Display</th></tr>
          </thead>
          <tbody><xsl:apply-templates select="$datas"/></tbody>
        </table>
      </div>
    </section>
  </xsl:template>

  <xsl:template match="Trigger/Start | Trigger/Stop">
    <dt><xsl:value-of select="name()"/></dt>
    <dd>
      <xsl:choose>
        <xsl:when test="@type = 'Channel'">when <xsl:apply-templates select="Channel"/></xsl:when>
        <xsl:when test="@type = 'Time'">after <xsl:value-of select="Time/@seconde"/> s</xsl:when>
        <xsl:otherwise>by hand</xsl:otherwise>
      </xsl:choose>
      <xsl:if test="self::Start and @prepost &lt; 0">, with the <xsl:value-of select="-@prepost"/> s before it</xsl:if>
      <xsl:if test="self::Stop and @prepost != 0">, with the <xsl:value-of select="translate(@prepost, '-', '')"/> s after it</xsl:if>
    </dd>
  </xsl:template>

  <xsl:template match="Channel">
    <xsl:variable name="watched" select="$datas[@index = current()/@index]"/>
    <xsl:value-of select="$watched/@name"/>
    <xsl:choose>
      <xsl:when test="@edge &lt; 0"> falls</xsl:when>
      <xsl:otherwise> rises</xsl:otherwise>
    </xsl:choose>
    <xsl:text> through </xsl:text>
    <xsl:value-of select="@level"/>
    <xsl:text> </xsl:text>
    <xsl:value-of select="$watched/@unit"/>
  </xsl:template>

  <xsl:template match="Recording/File">
    <dt>Files</dt>
    <dd>
      <code><xsl:value-of select="@prefix"/>…<xsl:value-of select="@format"/></code>
      <xsl:if test="string(@folder)"> in <code><xsl:value-of select="@folder"/></code></xsl:if>
    </dd>
  </xsl:template>

  <xsl:template match="InitScenario">
    <section>
      <h2>Sent first</h2>
      <ol>
        <xsl:for-each select="Request">
          <li><xsl:value-of select="@Name"/> <span class="quiet"> to <xsl:value-of select="@EcuName"/></span></li>
        </xsl:for-each>
      </ol>
    </section>
  </xsl:template>

  <xsl:template match="Data">
    <tr>
      <td class="number"><xsl:value-of select="@index"/></td>
      <td><xsl:value-of select="@name"/></td>
      <td><xsl:value-of select="@unit"/></td>
      <td><xsl:value-of select="@request"/></td>
      <td title="{ECU/@function}">
        <xsl:value-of select="ECU/@name"/>
        <xsl:if test="ECU/@address &lt; 65536">
          <span class="quiet"> 0x<xsl:call-template name="hex"><xsl:with-param name="value" select="ECU/@address"/></xsl:call-template></span>
        </xsl:if>
      </td>
      <td><xsl:apply-templates select="Scope"/></td>
    </tr>
  </xsl:template>

  <xsl:template match="Scope">
    <xsl:variable name="settings" select="*[name() = current()/@type]"/>
    <xsl:if test="$settings/@color">
      <i class="patch"><xsl:attribute name="style">background:<xsl:apply-templates select="$settings/@color"/></xsl:attribute></i>
    </xsl:if>
    <xsl:choose>
      <xsl:when test="@type = 'None'"><span class="quiet">not shown</span></xsl:when>
      <xsl:when test="@type = 'BarGraph'">bar</xsl:when>
      <xsl:when test="@type = 'GraphIndex'">on the graph of <xsl:value-of select="$datas[@index = $settings/@index]/@name"/></xsl:when>
      <xsl:when test="@type = 'GraphAxeX'">X axis of the graph of <xsl:value-of select="$datas[@index = $settings/@index]/@name"/></xsl:when>
      <xsl:when test="@type = 'Graph'">graph</xsl:when>
      <xsl:otherwise>digits</xsl:otherwise>
    </xsl:choose>
    <xsl:if test="string($settings/@caption)"> “<xsl:value-of select="$settings/@caption"/>”</xsl:if>
    <xsl:for-each select="$settings">
      <xsl:if test="@mini">, <xsl:value-of select="@mini"/> to <xsl:value-of select="@maxi"/></xsl:if>
      <xsl:if test="@axeYauto = 0">, <xsl:value-of select="@axeYmini"/> to <xsl:value-of select="@axeYmaxi"/></xsl:if>
      <xsl:if test="@axeXauto = 0">, <xsl:value-of select="@axeXmini"/> to <xsl:value-of select="@axeXmaxi"/></xsl:if>
      <xsl:if test="@points">, <xsl:value-of select="@points"/> points</xsl:if>
    </xsl:for-each>
  </xsl:template>

  <!-- Red is the lowest byte. -->
  <xsl:template match="@color">
    <xsl:text>rgb(</xsl:text>
    <xsl:value-of select="concat(. mod 256, ',', floor(. div 256) mod 256, ',', floor(. div 65536) mod 256)"/>
    <xsl:text>)</xsl:text>
  </xsl:template>

  <xsl:template name="hex">
    <xsl:param name="value"/>
    <xsl:if test="$value &gt;= 16">
      <xsl:call-template name="hex"><xsl:with-param name="value" select="floor($value div 16)"/></xsl:call-template>
    </xsl:if>
    <xsl:value-of select="substring('0123456789ABCDEF', $value mod 16 + 1, 1)"/>
  </xsl:template>

  <!-- Record -->

  <xsl:template name="record">
    <xsl:if test="$named and $count &gt; 1">
      <xsl:apply-templates select="$datas[Scope/@type = 'Graph']" mode="graph"/>
    </xsl:if>
    <section>
      <h2>Rows</h2>
      <p class="quiet">
        <xsl:value-of select="format-number($count, '#,##0')"/> row<xsl:if test="$count != 1">s</xsl:if>.
        <xsl:if test="$count &gt; $most">The table ends after the first <xsl:value-of select="format-number($most, '#,##0')"/>; the graphs show all. </xsl:if>
        <xsl:text>Times in seconds.</xsl:text>
        <xsl:if test="$rows and not($named)">Some data were not there, so the columns only have numbers.</xsl:if>
      </p>
      <div class="scroll tall">
        <table>
          <thead>
            <tr>
              <th class="number">Time</th>
              <th>Mark</th>
              <xsl:for-each select="$columns"><xsl:call-template name="heading"/></xsl:for-each>
            </tr>
          </thead>
          <tbody><xsl:apply-templates select="$rows[position() &lt;= $most]"/></tbody>
        </table>
      </div>
      <xsl:if test="$count &gt; $most">
        <p class="quiet">
          <xsl:value-of select="concat('The table ends here, after ', format-number($most, '#,##0'), ' of ', format-number($count, '#,##0'))"/>
          <xsl:text> rows. </xsl:text><code>tarn-record export</code><xsl:text> makes a table of them all.</xsl:text>
        </p>
      </xsl:if>
    </section>
  </xsl:template>

  <xsl:template name="heading">
    <xsl:variable name="data" select="$datas[position() = substring(name(current()), 2)]"/>
    <th class="number">
      <xsl:choose>
        <xsl:when test="$named">
          <xsl:value-of select="$data/@name"/>
          <span class="quiet"><xsl:value-of select="concat(' ', $data/@unit)"/></span>
        </xsl:when>
        <xsl:otherwise><xsl:value-of select="name()"/></xsl:otherwise>
      </xsl:choose>
    </th>
  </xsl:template>

  <xsl:template match="row">
    <tr>
      <xsl:if test="string(@Event)"><xsl:attribute name="class">marked</xsl:attribute></xsl:if>
      <td class="number"><xsl:value-of select="@Time"/></td>
      <td><xsl:value-of select="@Event"/></td>
      <xsl:for-each select="@*[starts-with(name(), 'C')]"><td class="number"><xsl:value-of select="."/></td></xsl:for-each>
    </tr>
  </xsl:template>

  <!-- A graph: the data itself and the curves on it, against time or against the data that gives the X axis. -->
  <xsl:template match="Data" mode="graph">
    <xsl:variable name="settings" select="Scope/Graph"/>
    <xsl:variable name="curves" select="current() | $datas[Scope/GraphIndex/@index = current()/@index]"/>
    <xsl:variable name="axis" select="$datas[Scope/GraphAxeX/@index = current()/@index][last()]"/>
    <xsl:variable name="columnX">
      <xsl:choose>
        <xsl:when test="$axis">C<xsl:value-of select="count($axis/preceding-sibling::Data) + 1"/></xsl:when>
        <xsl:otherwise>Time</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="columnsY">
      <xsl:text> </xsl:text>
      <xsl:for-each select="$curves"><xsl:value-of select="concat('C', count(preceding-sibling::Data) + 1, ' ')"/></xsl:for-each>
    </xsl:variable>
    <!-- Strings: comparing each cell with a fragment takes long. -->
    <xsl:variable name="x" select="string($columnX)"/>
    <xsl:variable name="y" select="string($columnsY)"/>
    <xsl:variable name="one" select="count($curves) = 1"/>
    <xsl:variable name="first" select="normalize-space($y)"/>
    <xsl:variable name="cells" select="$rows/@*[name() = $first or (not($one) and contains($y, concat(name(), ' ')))]"/>
    <xsl:variable name="across">
      <xsl:choose>
        <xsl:when test="$axis">
          <xsl:call-template name="range"><xsl:with-param name="cells" select="$rows/@*[name() = $x]"/></xsl:call-template>
        </xsl:when>
        <xsl:otherwise>
          <xsl:value-of select="translate(concat($rows[1]/@Time, ' ', $rows[last()]/@Time), ',', '.')"/>
        </xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="up">
      <xsl:choose>
        <xsl:when test="$settings/@axeYauto = 0 and $settings/@axeYmini &lt; $settings/@axeYmaxi">
          <xsl:value-of select="concat($settings/@axeYmini, ' ', $settings/@axeYmaxi)"/>
        </xsl:when>
        <xsl:otherwise>
          <xsl:call-template name="range"><xsl:with-param name="cells" select="$cells"/></xsl:call-template>
        </xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="left" select="substring-before($across, ' ')"/>
    <xsl:variable name="right" select="substring-after($across, ' ')"/>
    <xsl:variable name="width" select="($right - $left) + ($right = $left)"/>
    <xsl:variable name="bottom" select="substring-before($up, ' ')"/>
    <xsl:variable name="top" select="substring-after($up, ' ')"/>
    <xsl:if test="string($across) and string($up)">
      <figure>
        <figcaption><xsl:apply-templates select="$curves" mode="legend"/></figcaption>
        <div class="y">
          <span><xsl:call-template name="rounded"><xsl:with-param name="value" select="$top"/><xsl:with-param name="range" select="$top - $bottom"/></xsl:call-template></span>
          <span><xsl:call-template name="rounded"><xsl:with-param name="value" select="$bottom"/><xsl:with-param name="range" select="$top - $bottom"/></xsl:call-template></span>
        </div>
        <svg viewBox="0 0 1000 200" preserveAspectRatio="none" xmlns="http://www.w3.org/2000/svg">
          <xsl:if test="not($axis)">
            <xsl:for-each select="$rows[string(@Event)]">
              <xsl:variable name="at" select="1000 * (translate(@Time, ',', '.') - $left) div $width"/>
              <line class="mark" x1="{$at}" x2="{$at}" y1="0" y2="200"><title><xsl:value-of select="@Event"/></title></line>
            </xsl:for-each>
          </xsl:if>
          <xsl:for-each select="$curves">
            <xsl:variable name="column" select="concat('C', count(preceding-sibling::Data) + 1)"/>
            <path>
              <xsl:attribute name="stroke"><xsl:apply-templates select="Scope/*/@color"/></xsl:attribute>
              <xsl:attribute name="d">
                <xsl:call-template name="curve">
                  <xsl:with-param name="cells" select="$cells[name() = $column]"/>
                  <xsl:with-param name="x" select="$x"/>
                  <xsl:with-param name="left" select="$left"/>
                  <xsl:with-param name="width" select="$width"/>
                  <xsl:with-param name="bottom" select="$bottom"/>
                  <xsl:with-param name="height" select="($top - $bottom) + ($top = $bottom)"/>
                </xsl:call-template>
              </xsl:attribute>
            </path>
          </xsl:for-each>
        </svg>
        <div class="x">
          <span><xsl:value-of select="$left"/></span>
          <span class="name"><xsl:value-of select="$axis/@name"/></span>
          <span><xsl:value-of select="$right"/><xsl:if test="not($axis)"> s</xsl:if></span>
        </div>
      </figure>
    </xsl:if>
  </xsl:template>

  <xsl:template match="Data" mode="legend">
    <span class="curve">
      <i class="patch"><xsl:attribute name="style">background:<xsl:apply-templates select="Scope/*/@color"/></xsl:attribute></i>
      <xsl:choose>
        <xsl:when test="string(Scope/*/@caption)"><xsl:value-of select="Scope/*/@caption"/></xsl:when>
        <xsl:otherwise><xsl:value-of select="@name"/></xsl:otherwise>
      </xsl:choose>
      <xsl:if test="@unit"><span class="quiet"> (<xsl:value-of select="@unit"/>)</span></xsl:if>
    </span>
  </xsl:template>

  <!-- Least and greatest of these numbers, with a blank between them. They may have a decimal comma; what is no number is
       passed over: 0 times it is not 0. -->
  <xsl:template name="range">
    <xsl:param name="cells"/>
    <xsl:param name="numbers" select="$cells[0 * translate(., ',', '.') = 0]"/>
    <xsl:if test="$numbers">
      <xsl:call-template name="extreme">
        <xsl:with-param name="numbers" select="$numbers"/>
        <xsl:with-param name="sign" select="-1"/>
      </xsl:call-template>
      <xsl:text> </xsl:text>
      <xsl:call-template name="extreme">
        <xsl:with-param name="numbers" select="$numbers"/>
        <xsl:with-param name="sign" select="1"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- The greatest number, or with the sign -1 the least: that of a few is found by sorting, and again of those beyond it, until
       there are none. Sorting all takes much longer. -->
  <xsl:template name="extreme">
    <xsl:param name="numbers"/>
    <xsl:param name="sign"/>
    <xsl:variable name="each" select="ceiling(count($numbers) div 20)"/>
    <xsl:variable name="found">
      <xsl:for-each select="$numbers[position() mod $each = 0]">
        <xsl:sort select="$sign * translate(., ',', '.')" data-type="number" order="descending"/>
        <xsl:if test="position() = 1"><xsl:value-of select="translate(., ',', '.')"/></xsl:if>
      </xsl:for-each>
    </xsl:variable>
    <xsl:variable name="level" select="number($found)"/>
    <xsl:variable name="beyond" select="$numbers[$sign * (translate(., ',', '.') - $level) &gt; 0]"/>
    <xsl:choose>
      <xsl:when test="$beyond">
        <xsl:call-template name="extreme">
          <xsl:with-param name="numbers" select="$beyond"/>
          <xsl:with-param name="sign" select="$sign"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$found"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- To a hundredth of the range of an axis. -->
  <xsl:template name="rounded">
    <xsl:param name="value"/>
    <xsl:param name="range"/>
    <xsl:param name="scale" select="1"/>
    <xsl:choose>
      <xsl:when test="$range * $scale &lt; 100 and $scale &lt; 1000000">
        <xsl:call-template name="rounded">
          <xsl:with-param name="value" select="$value"/>
          <xsl:with-param name="range" select="$range"/>
          <xsl:with-param name="scale" select="10 * $scale"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="format-number(round($value * $scale) div $scale + 0, '0.######')"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The curve through these cells of one column. What is narrower than a screen shows is drawn as its first two, lowest,
       highest and last point; the rest is parted into halves, so that a long record takes no longer per row than a short one. -->
  <xsl:template name="curve">
    <xsl:param name="cells"/>
    <xsl:param name="x"/>
    <xsl:param name="left"/>
    <xsl:param name="width"/>
    <xsl:param name="bottom"/>
    <xsl:param name="height"/>
    <xsl:variable name="span" select="translate($cells[last()]/../@Time, ',', '.') - translate($cells[1]/../@Time, ',', '.')"/>
    <xsl:variable name="narrow" select="count($cells) &lt;= 3 or ($x = 'Time' and 500 * $span &lt;= $width)
                                        or ($x != 'Time' and 500 * count($cells) &lt;= $count)"/>
    <xsl:choose>
      <xsl:when test="$narrow">
        <xsl:variable name="numbers" select="$cells[0 * translate(., ',', '.') = 0]"/>
        <xsl:variable name="range">
          <xsl:call-template name="range"><xsl:with-param name="numbers" select="$numbers"/></xsl:call-template>
        </xsl:variable>
        <xsl:variable name="low" select="number(substring-before($range, ' '))"/>
        <xsl:variable name="high" select="number(substring-after($range, ' '))"/>
        <xsl:for-each select="$numbers[position() &lt;= 2 or position() = last()] | $numbers[translate(., ',', '.') = $low][1]
                              | $numbers[translate(., ',', '.') = $high][1]">
          <xsl:call-template name="point">
            <xsl:with-param name="x" select="$x"/>
            <xsl:with-param name="left" select="$left"/>
            <xsl:with-param name="width" select="$width"/>
            <xsl:with-param name="bottom" select="$bottom"/>
            <xsl:with-param name="height" select="$height"/>
          </xsl:call-template>
        </xsl:for-each>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="half" select="floor(count($cells) div 2)"/>
        <xsl:call-template name="curve">
          <xsl:with-param name="cells" select="$cells[position() &lt;= $half]"/>
          <xsl:with-param name="x" select="$x"/>
          <xsl:with-param name="left" select="$left"/>
          <xsl:with-param name="width" select="$width"/>
          <xsl:with-param name="bottom" select="$bottom"/>
          <xsl:with-param name="height" select="$height"/>
        </xsl:call-template>
        <xsl:call-template name="curve">
          <xsl:with-param name="cells" select="$cells[position() &gt; $half]"/>
          <xsl:with-param name="x" select="$x"/>
          <xsl:with-param name="left" select="$left"/>
          <xsl:with-param name="width" select="$width"/>
          <xsl:with-param name="bottom" select="$bottom"/>
          <xsl:with-param name="height" select="$height"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The point of a cell. A line leads to it unless its row comes after a pause or the row before has no number: then a
       dot begins another piece. -->
  <xsl:template name="point">
    <xsl:param name="x"/>
    <xsl:param name="left"/>
    <xsl:param name="width"/>
    <xsl:param name="bottom"/>
    <xsl:param name="height"/>
    <xsl:variable name="before" select="../preceding-sibling::row[1]"/>
    <xsl:variable name="h" select="number(translate(../@*[name() = $x], ',', '.'))"/>
    <xsl:variable name="v" select="number(translate(., ',', '.'))"/>
    <xsl:variable name="point" select="concat(round(10000 * ($h - $left) div $width) div 10, ',',
                                              200 - round(2000 * ($v - $bottom) div $height) div 10)"/>
    <xsl:choose>
      <xsl:when test="string($h) = 'NaN'"/>
      <xsl:when test="string(number(translate($before/@*[name() = name(current())], ',', '.'))) = 'NaN'
                      or string(number(translate($before/@*[name() = $x], ',', '.'))) = 'NaN'
                      or translate(../@Time, ',', '.') - translate($before/@Time, ',', '.') &gt; $pause">
        <xsl:value-of select="concat('M', $point, 'h0')"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="concat('L', $point)"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="style">
    <style>
      :root { color-scheme: light dark; --text: #1b1f24; --quiet: #68707a; --line: #d5dae0; --page: #fff; --head: #f3f5f7;
              --mark: #fff3cd; }
      @media (prefers-color-scheme: dark) {
        :root { --text: #e4e7eb; --quiet: #98a1ab; --line: #3b4149; --page: #1b1d20; --head: #26292e; --mark: #4a3f1c; }
      }
      body { margin: 2rem auto; max-width: 76rem; padding: 0 1.5rem; background: var(--page); color: var(--text);
             font: 15px/1.45 system-ui, "DejaVu Sans", sans-serif; }
      h1 { margin: 0; font-size: 1.6rem; overflow-wrap: anywhere; }
      h2 { margin: 2rem 0 .5rem; font-size: 1.1rem; }
      header p { margin: .2rem 0; }
      .kind { color: var(--quiet); font-size: .85rem; }
      .comment { white-space: pre-line; }
      .quiet { color: var(--quiet); font-weight: normal; }
      dl { display: grid; grid-template-columns: max-content 1fr; gap: .25rem 1.5rem; margin: 0; }
      dt { color: var(--quiet); }
      dd { margin: 0; }
      .scroll { overflow: auto; border: 1px solid var(--line); border-radius: 6px; }
      .tall { max-height: 80vh; }
      table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
      th, td { padding: .3rem .7rem; text-align: left; vertical-align: top; border-bottom: 1px solid var(--line); }
      tbody tr:last-child td { border-bottom: 0; }
      th { position: sticky; top: 0; background: var(--head); font-size: .85rem; vertical-align: bottom; }
      th .quiet { display: block; }
      .number { text-align: right; }
      .marked td { background: var(--mark); font-weight: 600; }
      .patch { display: inline-block; width: .75em; height: .75em; margin-right: .45em; border: 1px solid var(--quiet);
               border-radius: 3px; }
      details { margin-top: 2rem; }
      summary { cursor: pointer; font-size: 1.1rem; font-weight: bold; }
      figure { margin: 1.5rem 0 0; display: grid; grid-template-columns: minmax(3rem, max-content) minmax(0, 1fr); gap: .2rem .5rem; }
      figcaption { grid-column: 2; font-size: .9rem; }
      .curve { margin-right: 1.2rem; display: inline-block; }
      .y { display: flex; flex-direction: column; justify-content: space-between; text-align: right; }
      .x { grid-column: 2; display: flex; flex-wrap: wrap; justify-content: space-between; gap: 0 1rem; }
      .x .name { overflow-wrap: anywhere; min-width: 0; }
      .x, .y { color: var(--quiet); font-size: .8rem; font-variant-numeric: tabular-nums; }
      svg { width: 100%; height: 10rem; border: 1px solid var(--line); overflow: hidden; }
      path { fill: none; stroke-width: 1.6px; vector-effect: non-scaling-stroke; stroke-linejoin: round; stroke-linecap: round; }
      .mark { stroke: var(--quiet); stroke-width: 1px; stroke-dasharray: 4 3; vector-effect: non-scaling-stroke; }
      @media print { .scroll { overflow: visible; max-height: none; } }
    </style>
  </xsl:template>
</xsl:stylesheet>
