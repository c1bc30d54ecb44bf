// The steps of the marshallers, one element each: their own type is taken, null is not.
#include <gtest/gtest.h>

#include "DocumentSupport.h"
#include "XMLBootstrappingInfo.h"
#include "XMLCWIndication.h"
#include "XMLCallWaitingIndication.h"
#include "XMLCommunicationBarring.h"
#include "XMLCommunicationDiversion.h"
#include "XMLCommunicationWaiting.h"
#include "XMLConferenceInfo.h"
#include "XMLFt.h"
#include "XMLImdn.h"
#include "XMLIsComposing.h"
#include "XMLMediaControl.h"
#include "XMLOIP.h"
#include "XMLRcsTermsInfo.h"
#include "XMLSimservs.h"
#include "XMLTIP.h"
#include "XMLXcapDirectory.h"

namespace {

// `written`: what comes of an empty element, 0 when it lacks something required.
template <class Marshaller, class Step, class Element>
void Expect(Step step, Element* element, int written = 1) {
  const Tree<XMLElement> owner(element);
  Marshaller marshaller;
  ASSERT_TRUE(element);
  EXPECT_EQ((marshaller.*step)(nullptr), 0) << element->ElementName();
  EXPECT_EQ((marshaller.*step)(element), written) << element->ElementName();
}
template <class Root, class Marshaller, class Step>
void ExpectRoot(Step step, XMLObjectFactory&& factory, int written = 1) {
  Expect<Marshaller>(step, static_cast<Root*>(factory.CreateRootElement()), written);
}

TEST(Steps, OfTheSupplementaryServices) {
  using Diversion = Communication_diversionMarshaller;
  CommunicationDiversionDataBinder make;
  ExpectRoot<zt_communication_diversion, Diversion>(
      &Diversion::AddCommunication_diversionElementToXml, CommunicationDiversionDataBinder());
  Expect<Diversion>(&Diversion::AddForwardToElementtoXml, make.CreateForwardToTypeElement());
  Expect<Diversion>(&Diversion::AddRuleSetElementToXml, make.CreateRuleSetElement());
  Expect<Diversion>(&Diversion::AddRuleElementToXml, make.CreateRuleTypeElement(), 0);
  Expect<Diversion>(&Diversion::AddConditionsElementToXml, make.CreateConditionsTypeElement());
  Expect<Diversion>(&Diversion::AddExceptElementToXml, make.CreateExceptTypeElement());
  Expect<Diversion>(&Diversion::AddActionsElementToXml, make.CreateActionsTypeElement());
  Expect<Diversion>(&Diversion::AddTransformationsElementToXml,
                    make.CreateTransformationsTypeElement());
  Expect<Diversion>(&Diversion::AddEmptyElementtoXml, make.CreateEmptyTypeElement(), 0);
  using Barring = Communication_barringMarshaller;
  CommunicationBarringDataBinder barring;
  barring.setCBType(XML_COMMUNICATION_BARRING_INCOMING);
  Expect<Barring>(&Barring::AddIncoming_communication_barringElementToXml,
                  static_cast<zt_incoming_communication_barring*>(barring.CreateRootElement()));
  barring.setCBType(XML_COMMUNICATION_BARRING_OUTGOING);
  Expect<Barring>(&Barring::AddOutgoing_communication_barringElementToXml,
                  static_cast<zt_outgoing_communication_barring*>(barring.CreateRootElement()));
  Expect<Barring>(&Barring::AddActionsElementToXml, barring.CreateActionsTypeElement());
  ExpectRoot<zt_communication_waiting, Communication_waitingMarshaller>(
      &Communication_waitingMarshaller::AddCommunication_waitingElementToXml,
      CommunicationWaitingDataBinder());
  ExpectRoot<zt_originating_identity_presentation, OIPMarshaller>(
      &OIPMarshaller::AddOIPElementToXml, OIPDataBinder());
  ExpectRoot<zt_terminating_identity_presentation, TIPMarshaller>(
      &TIPMarshaller::AddTIPElementToXml, TIPDataBinder());
  ExpectRoot<zt_Simservs, SimservsMarshaller>(&SimservsMarshaller::AddSimservsElementToXml,
                                              SimservsDataBinder());
}

TEST(Steps, OfConferenceInformation) {
  using M = Conference_infoMarshall;
  ConferenceInfoDataBinder make;
  Expect<M>(&M::AddConferenceDescriptionElementToXml, make.CreateConferenceDescriptionType());
  Expect<M>(&M::AddHostInfoElementToXml, make.CreateHostType());
  Expect<M>(&M::AddConferenceStateElementToXml, make.CreateConferenceStateType());
  Expect<M>(&M::AddIUsersElementToXml, make.CreateUsersType());
  Expect<M>(&M::AddUserElementToXml, make.CreateUserType());
  Expect<M>(&M::AddEndPointElementToXml, make.CreateEndPointType());
  Expect<M>(&M::AddExecutionTypeElementToXml, make.CreateExecutionType());
  Expect<M>(&M::AddMediaElementToXml, make.CreateMediaType(), 0);
  Expect<M>(&M::AddSipElementToXml, make.CreateSIPDialogIDType());
  Expect<M>(&M::AddUriTypeElementToXml, make.CreateURIType());
  Expect<M>(&M::AddConferenceMediaTypeElementToXml, make.CreateConferenceMedaiType());
  Expect<M>(&M::AddConferenceMediumTypeElementToXml, make.CreateConferenceMediumType());
  Tree<zt_uris_type> uris(make.CreateURIsType());
  Tree<zt_conference_type> sidebar(make.CreateConferenceInfoType());
  M marshaller;
  EXPECT_EQ(marshaller.AddUrisTypeElementToXml(uris.get(), XML_STR_CONF_URIS), 1);
  EXPECT_EQ(marshaller.AddConferenceInfoElementToXml(sidebar.get(), XML_STR_ENTRY), 0);
  sidebar->setEntityValue("e");
  EXPECT_EQ(marshaller.AddConferenceInfoElementToXml(sidebar.get(), XML_STR_ENTRY), 1);
  EXPECT_EQ(marshaller.AddConferenceInfoElementToXml(nullptr, XML_STR_CONFERENCE_INFO), 0);
}

TEST(Steps, OfTheSmallDocuments) {
  ExpectRoot<zt_imdn, IMDNMarshaller>(&IMDNMarshaller::AddIMDNElementToXml, IMDNDataBinder());
  Expect<IMDNMarshaller>(&IMDNMarshaller::AddDeliverNotificationElementToXml,
                         IMDNDataBinder().CreateDeliverNotification(), 0);
  Expect<IMDNMarshaller>(&IMDNMarshaller::AddDisplayNotificationElementToXml,
                         IMDNDataBinder().CreateDisplayNotification(), 0);
  Expect<IMDNMarshaller>(&IMDNMarshaller::AddProcessingNotificationElementToXml,
                         IMDNDataBinder().CreateProcesssingNotification(), 0);
  ExpectRoot<zt_isComposing, IsComposingMarshaller>(
      &IsComposingMarshaller::AddIsComposingElementToXml, IsComposingDataBinder(), 0);
  ExpectRoot<zt_file, FileMarshaller>(&FileMarshaller::AddFileElementToXml, FileDataBinder());
  Expect<FileMarshaller>(&FileMarshaller::AddFileInfoElementToXml,
                         FileDataBinder().CreateFileInfoElement());
  Expect<FileMarshaller>(&FileMarshaller::AddDataElementToXml,
                         FileDataBinder().CreateDataElement());
  ExpectRoot<zt_media_control, MediaControlMarshaller>(
      &MediaControlMarshaller::AddMediaControlElementToXml, MediaControlDataBinder());
  Expect<MediaControlMarshaller>(&MediaControlMarshaller::AddVcPrimitiveElementToXml,
                                 MediaControlDataBinder().CreateVcPrimitiveElement());
  Expect<MediaControlMarshaller>(&MediaControlMarshaller::AddToEncoderElementToXml,
                                 MediaControlDataBinder().CreateToEncoderElement());
  ExpectRoot<zt_rcs_terms_info, RcsTermsInfoMarshaller>(
      &RcsTermsInfoMarshaller::AddRcsTermsInfoElementToXml, RcsTermsInfoDataBinder());
  Expect<RcsTermsInfoMarshaller>(&RcsTermsInfoMarshaller::AddTermElementToXml,
                                 RcsTermsInfoDataBinder().CreateTermElement());
  ExpectRoot<zt_bootstrappinginfo, BootstrappingInfoMarshaller>(
      &BootstrappingInfoMarshaller::AddBootstrappingInfoElementToXml,
      BootstrappingInfoDataBinder());
  char text[] = "text";
  EXPECT_EQ(BootstrappingInfoMarshaller().AddBtidElementToXml(text), 1);
  EXPECT_EQ(BootstrappingInfoMarshaller().AddLifetimeElementToXml(nullptr), 0);
  using Waiting = CallWaitingIndicationMarshaller;
  CallWaitingIndicationDataBinder make;
  ExpectRoot<zt_3gpp_ims, Waiting>(&Waiting::Add3gppImsElementToXml,
                                   CallWaitingIndicationDataBinder());
  Expect<Waiting>(&Waiting::AddAlternativeServiceElementToXml,
                  make.CreateAlternativeServiceElement());
  Expect<Waiting>(&Waiting::AddActionElementToXml, make.CreateActionElement());
  Expect<Waiting>(&Waiting::AddCallWaitingIndicationElementToXml,
                  make.CreateCallWaitingIndicationElement());
  ExpectRoot<zt_ims_3gpp, CWIndicationMarshaller>(&CWIndicationMarshaller::AddIms3gppElementToXml,
                                                  CWIndicationDataBinder());
  Expect<CWIndicationMarshaller>(&CWIndicationMarshaller::AddAlternativeServiceElementToXml,
                                 CWIndicationDataBinder().CreateAlternativeServiceElement());
  ExpectRoot<zt_xcap_directory, XcapDirectoryMarshaller>(
      &XcapDirectoryMarshaller::AddXcapDirectoryElementToXml, XcapDirectoryDataBinder());
  Expect<XcapDirectoryMarshaller>(&XcapDirectoryMarshaller::AddFolderElementToXml,
                                  XcapDirectoryDataBinder().CreateFolderElement(), 0);
  Expect<XcapDirectoryMarshaller>(&XcapDirectoryMarshaller::AddEntryElementToXml,
                                  XcapDirectoryDataBinder().CreateEntryElement(), 0);
}

}  // namespace
