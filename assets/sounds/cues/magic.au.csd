<CsoundSynthesizer>
; A rising sparkle: a run up a harp of glass, with a glitter above and a breath of wind below.
<CsInstruments>
#include "studio.inc"
seed 26

; p4 Hz, p5 seconds that it rings, p6 level
instr Harp
  aString  = Partial(p4,        1,    p5,        7)
  aString += Partial(p4 * 2.01, 0.30, p5 * 0.7,  7)
  aString += Partial(p4 * 3.03, 0.12, p5 * 0.5,  7)
  aString += Partial(p4 * 5.4,  0.05, p5 * 0.25, 7)
  gaStage += p6 * aString * cosseg:a(0, 0.003, 1)
endin

; A handful of sparks, thrown up one by one. p4 Hz around which they glow, p5 octaves that they stray to either side,
; p6 how many, p7 seconds that each glows, p8 level
instr Glitter
  iSpark = 0
  while iSpark < p6 do
    schedule "Spark", random:i(0, p3), p7, p4 * 2 ^ random:i(-p5, p5), p8 * random:i(0.35, 1)
    iSpark += 1
  od
  turnoff
endin

instr Spark
  aSpark = Partial(p4, 1, p3, 3) + Partial(p4 * 2.4, p4 < 4000 ? 0.25 : 0, p3 * 0.5, 3)  ; brighter ones would sting
  gaStage += p5 * aSpark * cosseg:a(0, 0.002, 1)
endin

; p4 and p5 Hz from which and to which the wind rises, p6 level
instr Wind
  gaStage += p6 * Hiss(expon:k(p4, p3, p5), 1.2) * cosseg:a(0, p3 / 2, 1, p3 / 2, 0)
endin
</CsInstruments>
<CsScore>
;           start length  Hz      ring    level
i "Harp"    0.00  0.7     523.3   0.55    0.50
i "Harp"    0.06  0.7     659.3   0.55    0.50
i "Harp"    0.12  0.7     784.0   0.55    0.52
i "Harp"    0.18  0.7     1046.5  0.60    0.54
i "Harp"    0.24  0.7     1318.5  0.60    0.56
i "Harp"    0.30  0.7     1568.0  0.65    0.58
i "Harp"    0.36  0.8     2093.0  0.75    0.60
i "Harp"    0.43  0.87    2637.0  0.95    0.62
i "Harp"    0.43  0.87    1318.5  0.95    0.35
;                         Hz      octaves sparks glow level
i "Glitter" 0.25  0.45    3136    0.25    10     0.22 0.14
i "Glitter" 0.45  0.50    4186    0.20    12     0.26 0.12
;                         from Hz to Hz   level
i "Wind"    0     0.6     700     3800    0.10
;                         echoes  size    fade
i "Room"    0     1.3     0.35    0.045   0.35
</CsScore>
</CsoundSynthesizer>
