Name plate KESTREL, 90 x 30 x 3 mm, letters 12 mm high, engraved 0.3 mm deep, two holes 3.2 mm
Material: brass plate 90 x 30 x 3, stuck with double-sided tape to a wooden board
Set-up: vertical spindle. Tools: T1 engraving cutter, tip 0.4 mm; T2 drill 3.2 mm
Zero point: lower left corner of the plate, top face. Start point: X -20, Y -20, Z +30
Letters are 6 mm wide and stand every 9 mm from X 15 on. The E comes twice and is a subroutine:
it starts 1 mm above its lower left corner.
%
    N` G`  X  `  Y `   Z ` F  
    00 92- 2000-2000  3000     Start: 20 mm left and front, 30 mm up
    01M06D   20S2000    00T 01 T1 engraving cutter, tip radius 0.2 mm
    02M03                      Spindle on, 2000 rpm
    03 21                      Frame with rounded corners
    04 00   600  300  3000     To the lower edge of the frame
    05 00   600  300   100     1 mm above the plate
    06 01   600  300-   30  30 Down to 0.3 mm
    07 01  8400  300-   30  80 cmdCOLOR Yellow lower edge
    08 03  8700  600-   30  80 cmdCOLOR Yellow corner R3
    09 01  8700 2400-   30  80 cmdCOLOR Yellow right edge
    10 03  8400 2700-   30  80 cmdCOLOR Yellow corner R3
    11 01   600 2700-   30  80 cmdCOLOR Yellow upper edge
    12 03   300 2400-   30  80 cmdCOLOR Yellow corner R3
    13 01   300  600-   30  80 cmdCOLOR Yellow left edge
    14 03   600  300-   30  80 cmdCOLOR Yellow corner R3, closed
    15 00   600  300   100     Up
    16 00  1500  900   100     K, stroke 1
    17 01  1500  900-   30  30 Down
    18 01  1500 2100-   30  80 Stem
    19 00  1500 2100   100     Up
    20 00  2100 2100   100     K, stroke 2
    21 01  2100 2100-   30  30 Down
    22 01  1500 1350-   30  80 Upper arm
    23 00  1500 1350   100     Up
    24 00  1740 1650   100     K, stroke 3
    25 01  1740 1650-   30  30 Down
    26 01  2100  900-   30  80 Leg
    27 00  2100  900   100     Up
    28 00  2400  900   100     E, lower left corner
    29 25                 L 80 Engrave the first E
    30 90                      Absolute again, the E left G91
    31 00  3900 1800   100     S, stroke 1
    32 01  3900 1800-   30  30 Down
    33 03  3600 2100-   30  80 Upper bow, R3, against the clock
    34 03  3300 1800-   30  80 Over the top
    35 03  3600 1500-   30  80 Down to the middle
    36 02  3900 1200-   30  80 Lower bow, now with the clock
    37 02  3600  900-   30  80 Round the foot
    38 02  3300 1200-   30  80 Tail
    39 00  3300 1200   100     Up
    40 00  4200 2100   100     T, stroke 1
    41 01  4200 2100-   30  30 Down
    42 01  4800 2100-   30  80 Bar
    43 00  4800 2100   100     Up
    44 00  4500 2100   100     T, stroke 2
    45 01  4500 2100-   30  30 Down
    46 01  4500  900-   30  80 Stem
    47 00  4500  900   100     Up
    48 00  5100  900   100     R, stroke 1
    49 01  5100  900-   30  30 Down
    50 01  5100 2100-   30  80 Stem
    51 01  5400 2100-   30  80 Top
    52 02  5700 1800-   30  80 Bowl, R3
    53 02  5400 1500-   30  80 Bowl, back to the middle
    54 01  5100 1500-   30  80 Middle
    55 00  5100 1500   100     Up
    56 00  5400 1500   100     R, stroke 2
    57 01  5400 1500-   30  30 Down
    58 01  5700  900-   30  80 Leg
    59 00  5700  900   100     Up
    60 00  6000  900   100     E, lower left corner
    61 25                 L 80 Engrave the second E
    62 90                      Absolute again
    63 00  6900 2100   100     L, stroke 1
    64 01  6900 2100-   30  30 Down
    65 01  6900  900-   30  80 Stem
    66 01  7500  900-   30  80 Foot
    67 00  7500  900   100     Up
    68 00  7500  900  3000     Retreat for the tool change
    69 00- 2000-2000  3000     Away from the plate
    70M06D  160S1500-  450T 02 T2 drill 3.2 mm
    71 00   750 1500  3000     Left hole
    72 00   750 1500   100     1 mm above the plate
    73 81           -  450  50 Drill through, 1.5 mm into the board
    74 00  8250 1500   100     Right hole
    75 81           -  450  50 Drill through
    76 00  8250 1500  3000     Up
    77 00- 2000-2000  3000     Back to the start point
    78M05                      Spindle off
    79M30                      End of program
    80 91                      Letter E, from 1 mm above its corner
    81 00   600   00    00     Along to the end of the foot
    82 01    00   00-  130  30 Down
    83 01-  600   00    00  80 Foot
    84 01    00 1200    00  80 Stem
    85 01   600   00    00  80 Top
    86 00    00   00   130     Up
    87 00-  600- 600    00     Back to the middle of the stem
    88 01    00   00-  130  30 Down
    89 01   500   00    00  80 Middle bar
    90 00    00   00   130     Up
    91M17                      Back to the main program
   MI
