// The stylesheet that shows an audit-trail file in a browser. It is written
// beside every trail saved with SaveAs, and the audit-trail view writes it
// beside the trail it shows. XSLT 1.0 (browsers, libxslt). Every value goes
// out through xsl:value-of, so event texts holding markup show as text.
#include "utl/AuditTrail.h"

char const * AuditTrail::GetXSLFileName() { return "audit_trail.xsl"; }

char const * AuditTrail::GetStylesheet() {
  return R"XSL(<?xml version="1.0" encoding="UTF-8"?>
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8" indent="yes" doctype-system="about:legacy-compat"/>

  <xsl:template match="/AuditTrail">
    <html>
      <head>
        <meta charset="utf-8"/>
        <title>Audit Trail - <xsl:value-of select="@project"/></title>
        <style>
          body { font-family: sans-serif; font-size: 10pt; margin: 1em; color: #222; }
          h1 { font-size: 14pt; margin: 0 0 0.5em 0; }
          table { border-collapse: collapse; }
          table.summary th {
            text-align: left; padding-right: 1em; font-weight: normal; color: #555;
          }
          table.events { width: 100%; margin-top: 1em; }
          table.events th { text-align: left; background: #e8e8e8; border-bottom: 1px solid #aaa; }
          table.events th, table.events td { padding: 2px 6px; vertical-align: top; }
          table.events tr:nth-child(even) td { background: #f6f6f6; }
          tr.session-begin td, tr.session-end td { font-weight: bold; }
          tr.cleared td { color: #a00; font-weight: bold; }
          td.number { text-align: right; }
          td.time { white-space: nowrap; }
          td.detail { white-space: pre-wrap; }
          .mono { font-family: monospace; font-size: 9pt; }
          p.note { color: #555; }
        </style>
      </head>
      <body>
        <h1>Audit Trail</h1>
        <table class="summary">
          <tr><th>Project</th><td><xsl:value-of select="@project"/></td></tr>
          <tr><th>Events</th><td><xsl:value-of select="count(Event)"/></td></tr>
          <tr><th>Trail</th><td class="mono"><xsl:value-of select="@id"/></td></tr>
          <tr><th>Sealed by key</th><td class="mono"><xsl:value-of select="Seal/@signer"/></td></tr>
        </table>
        <p class="note">Times are UTC. The application verifies the seal of the trail when it
          opens a session; this page only shows the trail.</p>
        <table class="events">
          <thead>
            <tr>
              <th>#</th><th>Time (UTC)</th><th>User</th><th>Level</th><th>Event</th><th>Detail</th>
            </tr>
          </thead>
          <tbody>
            <xsl:apply-templates select="Event"/>
          </tbody>
        </table>
      </body>
    </html>
  </xsl:template>

  <xsl:template match="Event">
    <tr class="{@type}">
      <td class="number"><xsl:value-of select="@seq"/></td>
      <td class="time"><xsl:value-of select="translate(substring(@time, 1, 19), 'T', ' ')"/></td>
      <td><xsl:value-of select="@user"/></td>
      <td class="number"><xsl:value-of select="@level"/></td>
      <td><xsl:value-of select="Text"/></td>
      <td class="detail"><xsl:value-of select="Detail"/></td>
    </tr>
  </xsl:template>
</xsl:stylesheet>
)XSL";
}
