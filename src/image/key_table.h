// The ten key texts of the codec. They are part of the format: a text decodes only with the table that
// encoded it, so not one character may ever change.
#pragma once

#include <array>
#include <string_view>

#include "text/literal.h"

namespace tessera {

// clang-format off
inline constexpr std::array<std::string_view, 10> kKeys = {
    "öIfóé;wÙN(°¯5<CuÀÛº°XVuçõyx´9çËÄ®6WÙb*V:7Sdølr÷eLæA'hû_[Ù`0%ìåpkFøìyàÿ¹JêjÕµKM®ûA÷CÛ´|]@â/ËT¶OO6"
    "@o!ító¬¼Î/ñMA»Õy%4Ù=9yeë7ðqð-(T[ÊÈú%K(ñÍEsC²j=©;ZaU]:qCÕ©Fì7¹Ã!PSés®:oW£æpGô;#j1©¥l"_w,
    "«½;3Ú¿Y$úÎ3Óæ{ý%Pkoâ;!,YWå®÷à6Ü¢l¸.îFæ¦Ö«ªe!¼9ÛÄu^Vnºz§Wæ/}E9¤'AÁaÑGo#Fõ£}ÎH&^µÍ¹cª©÷ÐúnÈâíþoå7î"
    "Åh~C¾ï`ÃD~wçÖGêúÿõöÐBhì+ÎS¤ªYÒÈûr¿èPECj(Øò5Nzjbðu7Hgf:Dq5Å,È-À¿ªýÉò:îEûsÇÓ²N»¸öËÂJPSVnAS"_w,
    "¹¬¾3réÏ@ZÿWrXÈm¶À:£ËbRÖÙ¥nI$y¦HlÊCÉ2PßÈÌ+@k±×8ÏTáö¸¸¯þ-þöOO:Æûà×çpKbj_A:ÓøÐÞ¹µy`ÑMÉ0º8È(m)e¡grÏ¬"
    "éô2ô£%1ÚPK^ê4·²,!áZ©ÑÖ½9m½ùðÍox<¹SIæéA*~RðVQ]n!B/]´Èéâ¦òjã{ëàÒDu/$9ÉÈÍÀPHXÓ}CHn;NÔq¾W7AJ(åJÉ~r£'"
    "fþ(¹!umú¿»s/(*7'Ér²k¼æk"_w,
    "7ë´û4(ª&f%õÍÝ3ô#tÿ<Åµ<yË(%öA×ïê*æ^ºc}¥Ö3üÌAþ2bdÛº½Æ-,î½7QKÛÌæZÖæáØbVam,D|Ûß»t·Å!pâA¢UlHßÜýÙÎP1_e"
    "PË*Ç$è=S=À¼Ëi^1¶clxsb}Ä´ò2WWZÿÆ¾îwI»ðÐ¬2(GÀZØÜÉ.Âþe!=Ê½,]Að&E4]©Í)Ó{WeëÕktZû^±.dîÑä$Í`ø·z²w¤68æ«"
    "ÀPhC5÷I-E^AÞ(Y9xa-Ã^Fþª=¼dÖW.uª4´¸³±ÓBè[Ø÷éÇáûbt:Ñ'S#Ç,zNò²{._IfqÀðål<w4^èÜ»áÉ[m%òîZ§ÕA"_w,
    "X9·®ÂæÇ±XE8ËEªÂöÜËÉÏþÒ0×»c9¨v37ã¥DZ,,cD)=öCfÀµÕ×eN¾RF-T>Ë~¾¿w.ux¨<&÷·Q3éÍ¸ÖCUuäéïµæSôL}-õÖÚHíqý}"
    "þág3ëÕa©Æ/à$'ðü÷ÁßêÇÑ¢Ñò_ª6ýÇ¿tØWóÈ·ð;¬8áø=ÛÔR´«HpFÙÜúmñn£ÚëPµ¤{öjYay@#lÃEz¿ZÚÔ¤Úp[Ùyo¸ëÝç6Jf;mX"
    "Ä6÷ÿôjÂF§7-*æpjJ*ËMyèõ*èdö(d´ôÅ-ç1Eì+ÔFÿõMüö&¨jç>_0N0;klHÊAsßãÑ¯A"_w,
    "]<2K*¯üù©)ú/«~¬OÞDö)dw#rÃô¹dÕåsæcAÿ@Li9_jû¼îpõsb6i+m7q×KÜ¾k³26ï¥¿_5DÁól~3øf¬Zº³üuòp¦$¡ÞÀK¢Ç(»¸ÐÂ"
    "äÜ¸¸Æu~rÚ1<îÜx%9ÁÈè÷}DÒ¸PGDÜ@'ÄèdodçoJEZâÆçïuðìÔKæ7Å³¯óa´%Ôû-i¦ÙöÖ¡/6¹P;¸drwVí,á"_w,
    "Üú#Zz9,ÄxI(Öbç¼¿±)7p¼ªÍ6ËrZûz_»;rõ÷|l©g±Ï»Ñ£1y38ÆªãßuPèÊ¤³pi¶ó½ªäU0*¯0ÛkÍ1ÜÌN>Ê_H&·@)C|ÍKÚX.Ìf·g"
    "ï%®=¾ÊDµ¥ÈR=¢¥Ëúq£¾ÙnÃû^³Æ²m96(NÏ7¡´ìëäé¤/AXè®M³é>fGg|@õaïqñãYÖçþXÊ«éÆùäÊÂ²³/P½A/T`WøÜªîça÷MÜóëÈ"
    "Kb¬6ÚèZl!õ]>ríÆIzR¶F,Þ){þßçÄ¢PÃð5³üð"_w,
    "¤!@ðÞ3fÊåÕ=mSYn/)]K[ÿÔm¯cÇ´x¯FQs>ó7Óß¡+9÷@¦¦s5(ÎÏÀåd¦ÌJKìNH÷[¾¾óëm÷¨§*¿;íúýª7BÔÍüû-û^a_©w.«#_áÀy"
    "Xqý$|cOm^ï-·|ûÃ¶Ë¡TÙªiéà¨¤:lÈNøhR³H3ÒÙäáóÝcøDÖi|çç¢¢)á×úNúª¹E6ØHînµÔ«wÚÌvô<å.K~£äùu^Zè"_w,
    "²çSãÓSq(Êb©;8-«§ñfÔCr´@¹üL¨Ä¼^fAfüëPj¼!ÓÐVlH=+F%£o)á¿ZeòMõÂºR¢)](Éâ)g0`(k*r>C7ÛJÁÈ[Ñ´Á@¿Ïè4Ø1[YZ"
    "üX+âÓ¦<ÃfÔS§Á¶<¡©Rêò#Ìóæ²u}ðkäc¦w²^úø.ñãÖ}N0u:Èÿã'xÞBâ»'tÆh¼¢ÙÔþuµmÈh¼ßZãÿlA@QõÂ"_w,
    "·È¾dFà'Íuí!ì@3æp¥²{rV>ÃÚJ`ëQþ±¼°o5pëSùÙ'_LNÅ6ÍpÆ77t!ä9IGßYÙ¸û¨ÁaÆÄ¹õRAò#¼²Íóc¾ÊÃÃ@çÕQJGÄXþá·.hÅ^"
    "^ð=~ó@ÙÜÄv;(ìLC$¶úGÕIÛs(&ßR2qIk&=ïóÚ5jaMµû&ð©¸^H5#ÏQÔ¶FYÐk}ûåÍ@/þ6¢ÊF¡ÛpmMgë^X"_w,
};
// clang-format on

inline constexpr std::array<std::size_t, 10> kKeyLengths = {179, 184, 215, 279, 257, 176, 228, 182, 176, 174};

static_assert([] {
  for (std::size_t i = 0; i < kKeys.size(); ++i) {
    if (kKeys[i].size() != kKeyLengths[i]) return false;
  }
  return true;
}());

}  // namespace tessera
