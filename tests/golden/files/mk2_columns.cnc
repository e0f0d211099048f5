%
   N00 G21
   N00 G00 X-1234 Z-12345 F678 remark
abcN00xy91zzX   7zzZ    8zz  9z
   N03 G22 X      Z       F  2
   M
